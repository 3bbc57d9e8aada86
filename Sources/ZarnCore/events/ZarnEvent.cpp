// SPDX-License-Identifier: MIT
#include <ZarnCore/events/ZarnEvent.h>

#include <ZarnCore/events/ZarnEventTable.h>

namespace zarn::evt {

namespace {

constexpr bool isAscending()
{
    bool isSorted = true;
    std::uint32_t least = 0;
    forEachEvent(eventTable, [&](const auto &row) {
        isSorted = isSorted && row.number >= least && row.number < NumberCount;
        least = row.number + 1;
    });
    return isSorted;
}
static_assert(isAscending(), "every number once, in order, inside the signal table");

} // namespace

Event::~Event() = default;

const char *Event::typeName() const noexcept
{
    return "";
}

} // namespace zarn::evt
