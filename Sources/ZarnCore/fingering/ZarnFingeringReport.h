// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <cstddef>
#include <vector>

namespace zarn::fingering {

/// A note of a score that no hand can play, by its place.
struct UnplayableNote {
    FingeringProblem::Kind kind;
    unsigned track;
    unsigned staff;
    unsigned bar;
    unsigned voice;
    unsigned beat;
    int pitch; ///< MIDI key as written
};

/// What came of fingering a part of a score.
struct FingeringReport {
    std::size_t noteCount = 0;  ///< that were looked at
    std::size_t movedCount = 0; ///< that have another string or fret now, or none
    std::vector<UnplayableNote> unplayable;
};

} // namespace zarn::fingering
