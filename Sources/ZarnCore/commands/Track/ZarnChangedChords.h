// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/model/attributes/ZarnChordMark.h>

#include <string>
#include <vector>

namespace zarn {

class Beat;
class ScoreBase;
class ScoreModel;
class Staff;
struct BeatSpan;

/// What a staff knows of chords; see `Staff::chordCollection`.
struct ChordsOfStaff {
    std::vector<std::string> names;
    std::vector<std::string> workingNames;
    std::vector<ChordDiagram> diagrams;
    std::vector<ChordDiagram> workingDiagrams;

    static ChordsOfStaff of(const Staff &staff);

    friend bool operator==(const ChordsOfStaff &left, const ChordsOfStaff &right)
    {
        return left.names == right.names && left.workingNames == right.workingNames
            && left.diagrams == right.diagrams && left.workingDiagrams == right.workingDiagrams;
    }
};

/// The chords that a command has changed, over beats and in the sets of staves, and what they were.
class ChangedChords {
public:
    void clear();

    /// Gives a beat of a voice another chord; false when it is the one that it has.
    bool set(Beat &beat, const BeatSpan &place, const ChordMark &chord);

    /// Gives a staff other sets; those that change keep equal members once. Nothing happens when
    /// all are those that it has.
    void setSets(Staff &staff, unsigned track, ChordsOfStaff sets);

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
        ChordsOfStaff before;
    };

    std::vector<BeatChord> _beats;
    std::vector<StaffSets> _sets;
};

} // namespace zarn
