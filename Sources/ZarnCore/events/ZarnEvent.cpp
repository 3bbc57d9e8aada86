// SPDX-License-Identifier: MIT
#include <ZarnCore/events/ZarnEvent.h>

#include <ZarnCore/events/EventNames.h>

#include <algorithm>

namespace zarn::evt {

namespace {

constexpr bool ascends()
{
    for (std::size_t i = 1; i < numberNames.size(); ++i) {
        if (numberNames[i - 1].number >= numberNames[i].number)
            return false;
    }
    return static_cast<std::uint32_t>(numberNames.back().number) < NumberCount;
}
static_assert(ascends(), "every number once, in order, inside the signal table");

} // namespace

const char *Event::typeName() const noexcept
{
    const auto number = static_cast<Number>(type());
    const auto found = std::lower_bound(
        numberNames.begin(), numberNames.end(), number,
        [](const NumberName &entry, Number wanted) { return entry.number < wanted; });
    return found != numberNames.end() && found->number == number ? found->name : "";
}

} // namespace zarn::evt
