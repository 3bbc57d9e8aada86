// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <string>
#include <vector>

/// One note of an edition with what its editor wrote; -1 where he wrote nothing.
struct EditedNote {
    double onset = 0;
    double duration = 0;
    int pitch = 0;
    int string = -1;
    int fret = -1;
    int finger = -1; ///< 0 open, 1 to 4 from the index finger
};

/// A piece of music with fingerings by its editor.
struct FingeredPiece {
    std::string name;
    std::vector<unsigned> tuning;
    std::vector<EditedNote> notes;
};

/// The pieces of a file as Tests/fingering/data has them. Raises for a file that is not there.
std::vector<FingeredPiece> readFingeredPieces(const std::string &path);

/// A piece without its marks. `noteOf` gets for each note of the piece the one of the passage: a
/// pitch that two voices strike is one.
zarn::fingering::Passage passageOf(const FingeredPiece &piece, std::vector<std::size_t> &noteOf);

/// A small task with a known answer; the file says what the columns are.
struct FingeringCase {
    std::string name;
    std::vector<unsigned> tuning;
    unsigned fretCount = 24;
    bool hasDrone = false;
    std::vector<std::vector<int>> events; ///< pitches
    std::string locks;
    std::string kind;
    std::string expected;
};

std::vector<FingeringCase> readFingeringCases(const std::string &path);

/// The case as a passage of quarters; `noteOf[event][note]` counts its notes.
zarn::fingering::Passage passageOf(const FingeringCase &task,
                                   std::vector<std::vector<std::size_t>> &noteOf);

/// What is wrong with the way that a case is played; empty when nothing is.
std::string faultOf(const FingeringCase &task,
                    const zarn::fingering::FingeringWeights &weights = {});
