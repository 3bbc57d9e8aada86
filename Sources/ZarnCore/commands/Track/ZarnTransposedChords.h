// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/model/attributes/ZarnChordMark.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zarn {

class Beat;
class Interval;
class ScoreBase;
class ScoreModel;
class Staff;
struct BeatSpan;

/// The chords over beats and in the working sets of staves, which go with the music when it is
/// transposed, and what they were.
class TransposedChords {
public:
    /// What becomes of chord diagrams.
    enum class Diagrams {
        Stay, ///< the fingers sound what they did
        Move, ///< along the neck; those that need an open string, or leave the neck, go
    };

    void clear();

    /// The chord of a beat in a voice, which goes an interval higher and its diagram so many frets.
    void transpose(Beat &beat, const BeatSpan &place, const Interval &interval, int frets,
                   Diagrams diagrams);

    /// The chords that a staff has at hand.
    void transposeSets(Staff &staff, unsigned track, const Interval &interval, int frets,
                       Diagrams diagrams);

    void putBack(const ScoreModel &model) const;

    /// Sends `ChordsChanged` for every staff that has other chords.
    void announce(ScoreBase &score, const void *sender) const;

private:
    struct BeatChord {
        unsigned track;
        unsigned staff;
        unsigned bar;
        unsigned voice;
        unsigned beat;
        ChordMark before;
    };
    struct StaffSets {
        unsigned track;
        unsigned staff;
        std::vector<std::string> chords;
        std::vector<ChordDiagram> diagrams;
    };

    std::vector<BeatChord> _beats;
    std::vector<StaffSets> _sets;
};

} // namespace zarn
