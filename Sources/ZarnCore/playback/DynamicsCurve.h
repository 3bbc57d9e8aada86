// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <vector>

namespace zarn::playback {

/// The velocity of a level: 49 for piano, 80 for mezzo forte, 96 for forte and so on, as programs
/// for notation commonly have them; 80 for none.
int velocityOf(NoteDynamic dynamic) noexcept;

/// How far one sign makes a note louder or softer.
constexpr int velocityStep = 16;

/// How loud a track is played, over the time of the score as written (each bar counted once).
///
/// A dynamic holds for all voices of its track until another comes; a voice that has one of its own
/// at the same time follows that. It starts mezzo forte. A hairpin runs in a straight line from the
/// level at its start to the dynamic that follows it within a whole note, when that is louder (for
/// a decrescendo: softer), else by a step.
class DynamicsCurve {
public:
    /// One for each staff and voice slot of a track, staff by staff.
    static std::vector<DynamicsCurve> ofTrack(const Track &track, const PlayedBars &bars);

    /// The same for a track without any dynamic.
    static std::vector<DynamicsCurve> ofPlainTrack(const Track &track);

    /// Whether it has hairpins.
    bool hasSlopes() const noexcept;

    /// Velocity 1 to 127, unrounded for those who add to it, at an offset from the start of a bar.
    double velocityAt(const utils::rational &bar, const utils::rational &offset) const;

private:
    /// From a time on the velocity runs to the one of the next point, or stays.
    struct Point {
        utils::rational time;
        double velocity = 0;
        bool isSlope = false;
    };
    friend class DynamicsReader;

    std::vector<Point> _points;
};

} // namespace zarn::playback
