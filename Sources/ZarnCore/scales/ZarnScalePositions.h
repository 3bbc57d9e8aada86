// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/scales/ZarnScale.h>

#include <vector>

namespace zarn {
class GuitarTuning;
}

namespace zarn::scale {

/// The frets of a scale that lie under a hand in one place.
struct ScalePosition {
    /// Where the window of frets begins; 0 has the open strings.
    int firstFret = 0;
    int lastFret = 0;

    /// Frets per string, string 0 first, ascending.
    std::vector<std::vector<int>> frets;

    /// Whether no tone of the scale is missing between the lowest pitch and the highest.
    bool isComplete = false;
};

/// How far the hand reaches and the neck goes.
struct PositionLimits {
    int lastFret = 15;
    /// Frets under the hand; one more where the scale has gaps otherwise.
    int width = 4;
};

/// The places of a hand from which a scale can be played on a tuning, from the nut up: one for
/// each tone that the lowest string has in an octave, and the open position. A short drone string
/// has its frets along the long neck. Empty without strings.
ZARNCORE_EXPORT std::vector<ScalePosition> positions(const Scale &scale, const GuitarTuning &tuning,
                                                     const PositionLimits &limits = {});

} // namespace zarn::scale
