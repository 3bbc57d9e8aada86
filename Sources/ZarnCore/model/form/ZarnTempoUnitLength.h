// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>

#include <array>
#include <cstddef>

namespace zarn {

/// The beat of a tempo in quarters; without a unit, or with one that is none, it is a quarter.
constexpr double quartersOf(TempoUnit unit) noexcept
{
    constexpr std::array<double, 6> quarters = {1, 0.5, 1, 1.5, 2, 3};
    static_assert(static_cast<std::size_t>(TempoUnit::HalfDotted) + 1 == quarters.size());
    const auto number = static_cast<std::size_t>(unit);
    return number < quarters.size() ? quarters[number] : 1;
}

} // namespace zarn
