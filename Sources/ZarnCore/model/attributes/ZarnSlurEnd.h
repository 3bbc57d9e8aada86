// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesSigns.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace zarn {

/// An end of a slur beside the outermost one of its voice: one that is nested, overlaps, or leads
/// to another voice or staff of the track.
///
/// A beginning and the next end of its number in the track are one slur: no two of one number run
/// at a time.
struct SlurEnd {
    static constexpr unsigned HighestNumber = 16;

    std::uint8_t number = 1; ///< 1 to 16
    bool isBegin = true;

    // Both ends say them; the beginning counts.
    SlurLine line = SlurLine::Solid;
    SlurSide side = SlurSide::Auto;

    friend bool operator==(const SlurEnd &left, const SlurEnd &right) noexcept
    {
        return left.number == right.number && left.isBegin == right.isBegin
            && left.line == right.line && left.side == right.side;
    }
    friend bool operator!=(const SlurEnd &left, const SlurEnd &right) noexcept
    {
        return !(left == right);
    }
};

/// The slurs that end and begin at a beat, in this order.
using SlurEnds = std::vector<SlurEnd>;

inline bool areValid(const SlurEnds &ends) noexcept
{
    return std::all_of(ends.begin(), ends.end(), [](const SlurEnd &end) {
        return end.number >= 1 && end.number <= SlurEnd::HighestNumber
            && end.line <= SlurLine::Dotted && end.side <= SlurSide::Below;
    });
}

} // namespace zarn
