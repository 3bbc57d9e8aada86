// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <cmath>

namespace zarn::playback {

/// The position of an automation in its bar, which is stored in floating point, as a fraction of a
/// quarter: the nearest one that beats of common values and tuplets start at.
inline utils::rational positionOf(float position)
{
    constexpr int ticksPerQuarter = 20160; // 2^6 * 3^2 * 5 * 7
    const double ticks = std::round(static_cast<double>(position) * ticksPerQuarter);
    constexpr double most = 1e12;
    return {static_cast<std::int64_t>(ticks > 0 ? std::fmin(ticks, most) : 0), ticksPerQuarter};
}

} // namespace zarn::playback
