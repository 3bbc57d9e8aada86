// SPDX-License-Identifier: MIT
#include "edit/EventPrinter.h"

#include "common/Terminal.h"
#include "edit/EventWords.h"

#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <ostream>

namespace zarn::tool {

EventPrinter::EventPrinter(Score &score, std::ostream &out, EventDetail detail)
    : _out(out), _detail(detail)
{
    evt::forEachEvent(evt::eventTable, [this, &score](const auto &row) {
        using E = typename std::decay_t<decltype(row)>::Event;
        _connections.push_back(score.connectScoped<E>(this, [this](const E &event) {
            const std::string words = printable(eventWords(event).toStdString());
            if (_detail == EventDetail::All)
                print(event.typeName(), words);
            else
                collect(event.typeName(), words);
        }));
    });
}

EventPrinter::~EventPrinter() = default;

void EventPrinter::print(const char *typeName, const std::string &words)
{
    _out << "  event " << typeName << (words.empty() ? "" : ": ") << words << '\n';
}

void EventPrinter::collect(const char *typeName, const std::string &words)
{
    constexpr std::size_t Most = 3;
    const std::string name = typeName;
    if (name == "CommandExecuted") {
        if (_collected.empty())
            return;
        _out << "  events: ";
        for (std::size_t i = 0; i < std::min(Most, _collected.size()); ++i)
            _out << (i == 0 ? "" : "; ") << _collected[i];
        if (_collected.size() > Most)
            _out << " and " << _collected.size() - Most << " more";
        _out << '\n';
        _collected.clear();
        return;
    }
    const bool isFrame =
        name.rfind("Command", 0) == 0 || name == "BeginMacro" || name == "EndMacro";
    if (!isFrame)
        _collected.push_back(words.empty() ? name : name + " (" + words + ")");
}

} // namespace zarn::tool
