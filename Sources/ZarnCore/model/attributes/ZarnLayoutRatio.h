// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

// Widths of bars among the others of their system.
constexpr float lowestLayoutRatio = 0.1F;
constexpr float highestLayoutRatio = 10;

constexpr bool isLayoutRatio(float ratio) noexcept
{
    return ratio >= lowestLayoutRatio && ratio <= highestLayoutRatio;
}

} // namespace zarn
