// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

namespace zarn::playback {

/// A time that can be added to others without end: exact, unless its denominator is one that no
/// note value in three tuplets has; then it is rounded to less than a hundredth of a millisecond.
constexpr utils::rational bounded(const utils::rational &time)
{
    constexpr std::int64_t largest = std::int64_t(1) << 18;
    constexpr std::int64_t ticksPerQuarter = 161280; // 2^9 * 3^2 * 5 * 7
    if (time.denominator() <= largest)
        return time;
    const std::int64_t whole = time.floor();
    const auto part = static_cast<double>(time.numerator() - whole * time.denominator())
        / static_cast<double>(time.denominator());
    return {whole * ticksPerQuarter + static_cast<std::int64_t>(part * ticksPerQuarter + 0.5),
            ticksPerQuarter};
}

/// Goes on by a length.
constexpr void advance(utils::rational &time, const utils::rational &length)
{
    time = bounded(time + bounded(length));
}

} // namespace zarn::playback
