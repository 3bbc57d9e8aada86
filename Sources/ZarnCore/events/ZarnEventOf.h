// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvent.h>
#include <ZarnCore/events/ZarnEventNumber.h>

namespace zarn::evt {

/// Gives an event class its number. Events without content need nothing else.
template <Number N>
class EventOf : public Event {
public:
    static constexpr std::uint32_t TypeNumber = static_cast<std::uint32_t>(N);
    static_assert(TypeNumber < NumberCount);

    std::uint32_t type() const noexcept final { return TypeNumber; }
};

} // namespace zarn::evt
