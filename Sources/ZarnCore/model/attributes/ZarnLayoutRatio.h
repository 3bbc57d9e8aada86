// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <vector>

namespace zarn {

// Widths of bars among the others of their system.
constexpr float lowestLayoutRatio = 0.1F;
constexpr float highestLayoutRatio = 10;

constexpr bool isLayoutRatio(float ratio) noexcept
{
    return ratio >= lowestLayoutRatio && ratio <= highestLayoutRatio;
}

/// For the bars of a command: some, and each of them a width.
inline bool areLayoutRatios(const std::vector<float> &ratios) noexcept
{
    return !ratios.empty() && std::all_of(ratios.begin(), ratios.end(), isLayoutRatio);
}

} // namespace zarn
