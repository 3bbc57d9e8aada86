// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>
#include <vector>

namespace zarn {

class ScoreModel;

/// Names every broken rule of the tree, with its place ("track 0 staff 1 bar 12: ..."); empty for
/// a sound model: parents and indexes are right, every staff has a bar per master bar, automations
/// are sorted and on bars that are there, directions are on bars that are there, similes have a
/// bar in front and double ones both halves, notes of fretted staves are on strings that exist,
/// slurs, hammer-ons, slides and tremolos between two beats have both ends. Ties are free to begin
/// and end in the open.
ZARNCORE_EXPORT std::vector<std::string> checkModel(const ScoreModel &model);

/// The same without a look into the bars, which takes most of the time.
ZARNCORE_EXPORT std::vector<std::string> checkModelDownToBars(const ScoreModel &model);

} // namespace zarn
