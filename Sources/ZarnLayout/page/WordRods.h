// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnGeometry.h>
#include <ZarnLayout/page/EngravedScore.h>

#include <map>
#include <utility>
#include <vector>

namespace zarn::engraving {

/// Words near the end of a run of bars, by row and height: how far they reach behind its end; below
/// 0 in front of it.
using WordReach = std::map<std::pair<unsigned, int>, layout::Unit>;

/// Between words that meet over a bar line.
constexpr double gapOfWords = 0.6;

/// Keeps words of a line of bars apart: they may reach over bar lines, but not into the words
/// behind them.
class WordRods {
public:
    WordRods(const EngravedScore &score, SpringLine &line) : _score(score), _line(line) { }

    /// Words of the bars in front, seen from the first column of the line.
    void comeBehind(const WordReach &words);

    /// Keeps all words behind the edge of the page, which is as far in front of the first column of
    /// the line.
    void startAt(double room) { _room = room; }

    /// The bar that was added to the line last; `start` is the first of its columns of notes.
    void addBar(unsigned shownBar, unsigned start);

    /// Keeps all words, and those above the staves, in front of a place behind the last column.
    void endAt(double room);

    /// How far words reach over the last column, now that the columns have their places.
    WordReach reach(const std::vector<double> &places) const;

private:
    struct Word {
        unsigned column;
        double reach; ///< to the right, from the column
    };

    const EngravedScore &_score;
    SpringLine &_line;
    double _room = -1; ///< in front of the first column; below 0 where nothing ends there
    std::map<std::pair<unsigned, int>, Word> _last; ///< by row and height
    std::vector<Word> _texts;                       ///< above the staves
};

} // namespace zarn::engraving
