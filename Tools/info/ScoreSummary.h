// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

/// What a score holds, in lines for a person: title, tracks, counts, and where time, key and
/// tempo change.
std::string summaryOf(const ScoreModel &model);

} // namespace tool
} // namespace zarn
