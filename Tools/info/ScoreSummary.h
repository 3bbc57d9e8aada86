// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

/// What a score holds, in lines for a person, at most `width` wide as far as words can be broken:
/// title, tracks, counts, where time, key and tempo change, and which bars are too long.
std::string summaryOf(const ScoreModel &model, int width);

} // namespace tool
} // namespace zarn
