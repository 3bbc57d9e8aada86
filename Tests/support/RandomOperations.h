// SPDX-License-Identifier: MIT
#pragma once

#include "RandomPlaces.h"

#include <vector>

namespace zarn {
class Score;
}

/// A score to edit, and how large it was at first: the edits keep it near that.
struct EditedScore {
    zarn::Score &score;
    Random &random;
    RandomPlaces places;
    unsigned firstBarCount;
    unsigned firstTrackCount;

    EditedScore(zarn::Score &edited, Random &numbers);
};

/// An operation of a score with arguments by chance, valid ones and others; answers as the
/// operation does.
struct RandomOperation {
    const char *name;
    unsigned weight;
    bool (*act)(EditedScore &edited);
};

/// Those that mark beats and notes.
const std::vector<RandomOperation> &randomMarkOperations();

/// Those that move notes and change note values.
const std::vector<RandomOperation> &randomPitchOperations();
/// Those of sounds, effects and the mixer, and of how tracks are arranged and played.
const std::vector<RandomOperation> &randomSoundOperations();

/// Those that join beats and notes to their neighbours, or put others in the place of beats.
const std::vector<RandomOperation> &randomLinkOperations();

/// Those that put bars and voices in the place of others.
const std::vector<RandomOperation> &randomStructureOperations();

/// Those of layout, beams and fermatas.
const std::vector<RandomOperation> &randomLayoutOperations();

/// Those of chords and lyrics.
const std::vector<RandomOperation> &randomWordOperations();

/// Every operation that changes a score.
const std::vector<RandomOperation> &randomOperations();
