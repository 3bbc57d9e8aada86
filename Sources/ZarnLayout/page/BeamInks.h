// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <vector>

namespace zarn::engraving {

/// A straight line through which stems end: the outer edge of the first beam.
struct BeamLine {
    double x = 0;
    double y = 0;
    double slope = 0;

    double at(double place) const noexcept { return y + slope * (place - x); }
};

/// The chords of one beam, from left to right, with their places.
struct BeamedChord {
    const PlacedChord *chord = nullptr;
    MarkPlace place;
};
using BeamedChords = Few<BeamedChord, 8>;

/// Thickness of a beam and the gap behind it.
double beamStep(double scale);

/// Beams of the chord that has most of them.
int mostBeamsOf(const BeamedChords &chords);

/// The beams that leave a chord for the next one, short ones from either included; by how many lie
/// up to the innermost of them.
int beamsBehind(const BeamedChords &chords, std::size_t member);

/// The beams of chords: the first along a line, the others inward from it. Inward is 1 for down,
/// -1 for up; the scale is that of small notes.
Inks beamInks(const BeamedChords &chords, const BeamLine &line, double inward, double scale,
              const Pen &pen);

/// Covers what a beam covers, which is less than its box where it is slanted.
void cover(RowDraft &row, const Ink &beam);

} // namespace zarn::engraving
