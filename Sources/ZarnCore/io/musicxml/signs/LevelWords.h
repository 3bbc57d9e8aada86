// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

// A document may print words beside a level: "p subito", "sempre pp". In the text of a beat they
// stand first, each tied to the level by a no-break space on the side where the level is, and tied
// together by such spaces too: what else is said over the beat follows behind them.

enum class LevelSide { Before, After };

/// The words tied to the level that they stand before or after; empty for nothing but space.
std::string tiedToLevel(std::string_view words, LevelSide side);

/// The text of a beat with more words, tied ones or others, which begin a new line.
std::string joinedWords(const std::string &text, const std::string &more);

/// What is in the text of a beat.
struct LevelWords {
    struct Tied {
        std::string words; ///< with spaces, also the one on the side of the level
        LevelSide side;
    };

    std::vector<Tied> tied;
    std::string others;
};

/// Takes the text of a beat with or without a level apart; one that would not be read again as it
/// is has no tied words.
LevelWords levelWordsOf(const std::string &text, bool hasLevel);

/// Whether words are made like a level that is none, such as "ffz": they are tied to none.
bool areLikeLevel(std::string_view words);

} // namespace zarn::io
