// SPDX-License-Identifier: MIT
#include "edit/EventPrinter.h"

#include "common/Terminal.h"
#include "edit/EventWords.h"

#include <ZarnCore/score/ZarnScore.h>

#include <ostream>

namespace zarn::tool {

EventPrinter::EventPrinter(Score &score, std::ostream &out) : _out(out)
{
    evt::forEachEvent(evt::eventTable, [this, &score](const auto &row) {
        using E = typename std::decay_t<decltype(row)>::Event;
        _connections.push_back(score.connectScoped<E>(this, [this](const E &event) {
            print(event.typeName(), eventWords(event).toStdString());
        }));
    });
}

EventPrinter::~EventPrinter() = default;

void EventPrinter::print(const char *typeName, const std::string &words)
{
    _out << "  event " << typeName << (words.empty() ? "" : ": ") << printable(words) << '\n';
}

} // namespace zarn::tool
