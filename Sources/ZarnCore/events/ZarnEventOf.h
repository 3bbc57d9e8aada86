// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvent.h>
#include <ZarnCore/events/ZarnEventTable.h>

namespace zarn::evt {

/// Gives an event class the number and the name that the table of all events has for it. Events
/// without content need nothing else.
template <class Self>
class EventOf : public Event {
public:
    static constexpr std::uint32_t TypeNumber =
        static_cast<const EventRow<Self> &>(eventTable).number;
    static_assert(TypeNumber < NumberCount);

    std::uint32_t type() const noexcept final { return TypeNumber; }
    const char *typeName() const noexcept final
    {
        return static_cast<const EventRow<Self> &>(eventTable).name;
    }
};

} // namespace zarn::evt
