// SPDX-License-Identifier: MIT
#include "edit/EventPrinter.h"

#include "common/Terminal.h"
#include "edit/AllEvents.h"
#include "edit/EventWords.h"

#include <ZarnCore/score/ZarnScore.h>

#include <ostream>

namespace zarn::tool {

namespace {

template <class Visit, class... Events>
void forEachType(TypeList<Events...>, Visit visit)
{
    (visit(static_cast<const Events *>(nullptr)), ...);
}

} // namespace

EventPrinter::EventPrinter(Score &score, std::ostream &out) : _out(out)
{
    forEachType(AllEvents(), [this, &score](auto *type) {
        using E = std::remove_const_t<std::remove_pointer_t<decltype(type)>>;
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
