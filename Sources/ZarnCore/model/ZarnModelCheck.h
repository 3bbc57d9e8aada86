// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>
#include <vector>

namespace zarn {

class ScoreModel;

/// Names every broken rule of the tree, with its place ("track 0 staff 1 bar 12: ..."); empty for
/// a sound model: parents and indexes are right, every staff has a bar per master bar, automations
/// are sorted, on bars that are there and can be played, groups hold tracks and forced sounds are
/// sounds, directions are on bars that are there, similes have a bar in front and double ones both
/// halves, notes of fretted staves are on strings that exist, slurs, hammer-ons, slides, tremolos
/// between two beats and lines behind words have both ends, numbered slurs do and do not meet
/// others of their number, pedals are pressed and lifted in turn, and the syllables of words follow
/// each other. Ties are free to begin and end in the open; a pedal may be held to the end, and a
/// word may break off there.
ZARNCORE_EXPORT std::vector<std::string> checkModel(const ScoreModel &model);

/// The same without a look into the bars, which takes most of the time.
ZARNCORE_EXPORT std::vector<std::string> checkModelDownToBars(const ScoreModel &model);

} // namespace zarn
