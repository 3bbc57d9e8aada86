// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <vector>

namespace zarn::playback {

/// How the pitch of a note moves while it sounds: straight from point to point over the quarters,
/// and as the last point from there on.
struct PitchMotion {
    struct Point {
        utils::rational time; ///< in quarters of playing
        double semitones = 0; ///< above the key of the note

        friend bool operator==(const Point &left, const Point &right) noexcept
        {
            return left.time == right.time && left.semitones == right.semitones;
        }
    };

    /// In order of time; at least one.
    std::vector<Point> points;

    ZARNCORE_EXPORT double semitonesAt(const utils::rational &time) const;

    /// The furthest from the key, without its sign.
    ZARNCORE_EXPORT double reach() const;

    friend bool operator==(const PitchMotion &left, const PitchMotion &right) noexcept
    {
        return left.points == right.points;
    }
};

} // namespace zarn::playback
