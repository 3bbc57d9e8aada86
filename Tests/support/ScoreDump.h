// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {
class Score;
class ScoreModel;
} // namespace zarn

/// All of a model that undo must give back: the document, and what a document leaves out: voices
/// without beats, and the order of playing.
std::string dump(const zarn::ScoreModel &model);

/// The same with the place of the cursor.
std::string dump(const zarn::Score &score);
