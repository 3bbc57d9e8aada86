// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlannedNote.h>

#include <vector>

namespace zarn::playback {

/// How loud a note is meant to be while it is held under a hairpin.
struct HeldSwell {
    struct Level {
        utils::rational time;
        double velocity = 0;
    };

    /// Between two levels.
    static const utils::rational step;

    utils::rational end;
    std::vector<Level> levels; ///< at least one, the first where the note is struck
};

/// Has notes of a track swell while they are held, by expression (controller 11), where instrument
/// and music allow it: the sound of the track can grow, and nothing else is struck or heard
/// meanwhile. They are struck as loud as they get; expression brings them down from there, and is
/// full again when the track is struck next.
///
/// `controls` are those of the track in the order of time; what is new goes behind them.
void addHeldSwells(std::vector<HeldSwell> swells, std::vector<PlannedNote> &notes,
                   std::vector<PlannedControl> &controls);

} // namespace zarn::playback
