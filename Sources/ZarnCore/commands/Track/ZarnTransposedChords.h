// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnChangedChords.h>

namespace zarn {

class Interval;

/// The chords over beats and in the working sets of staves, which go with the music when it is
/// transposed.
class TransposedChords : public ChangedChords {
public:
    /// What becomes of chord diagrams.
    enum class Diagrams {
        Stay, ///< the fingers sound what they did
        Move, ///< along the neck; those that need an open string, or leave the neck, go
    };

    /// The chord of a beat in a voice, which goes an interval higher and its diagram so many frets.
    void transpose(Beat &beat, const BeatSpan &place, const Interval &interval, int frets,
                   Diagrams diagrams);

    /// The chords that a staff has at hand.
    void transposeSets(Staff &staff, unsigned track, const Interval &interval, int frets,
                       Diagrams diagrams);
};

} // namespace zarn
