// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <array>

namespace zarn {

class Staff;

namespace fingering {

/// How a left hand lies on an instrument. Distances are in frets, or in semitones where there are
/// none.
struct HandProfile {
    static constexpr int FingerCount = 4;

    /// How far each finger, from the index on, lies from the place of the hand when it is at ease.
    std::array<float, FingerCount> reach = {0, 1, 2, 3};

    /// How far a finger bends from there without effort.
    float ease = 0;

    /// Widest chord that a hand holds, from the lowest to the highest stopped fret.
    int widestSpan = 4;

    /// Notes that sound together lie on neighbouring strings.
    bool isBowed = false;
};

/// The hand of the instrument that a staff is tuned as; where the tuning names none, of that which
/// its intervals tell: fifths are played as on a violin or mandolin, all else as on a guitar.
ZARNCORE_EXPORT HandProfile handProfile(const Staff &staff);

} // namespace fingering
} // namespace zarn
