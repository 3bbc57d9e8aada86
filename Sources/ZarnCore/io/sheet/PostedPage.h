// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class ScoreModel;

namespace sheet {

struct PostedStyle {
    int width = 80; ///< columns
    bool hasRhythm = false;
};

/// A score as players post it, in UTF-8: title and authors, then one track after the other, fretted
/// ones as tablature under their tuning and capo, drums as a grid, all others as note names. The
/// music is drawn in ASCII.
std::string postedPageOf(const ScoreModel &model, const PostedStyle &style);

} // namespace sheet
} // namespace zarn
