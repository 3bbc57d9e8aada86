// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnScoreModelIndex.h>

#include <memory>

namespace zarn {

class Score;

/// The editing position of a score: a place in its model. Each score has one cursor, which sends
/// `ScoreCursorMoved` when its place changes; copies of it are saved places and send nothing.
class ZARNCORE_EXPORT ScoreCursor {
public:
    /// The cursor of a score, which must outlive it; at no place yet.
    explicit ScoreCursor(Score *score);

    ScoreCursor(const ScoreCursor &other) noexcept : _index(other._index) { }

    /// The same as `moveToCursor`.
    ScoreCursor &operator=(const ScoreCursor &other);

    ~ScoreCursor() = default;

    /// A copy of the current position.
    std::unique_ptr<ScoreCursor> cloneScoreCursor() const;

    /// Takes over the place of another cursor, in the score of this one.
    void moveToCursor(const ScoreCursor &other);

    const ScoreModelIndex &index() const noexcept { return _index; }

    /// Moves to a place. A score's own cursor resolves it in the model of its score, whatever
    /// model the index came from. The place need not exist.
    void setIndex(const ScoreModelIndex &index);

private:
    Score *_score = nullptr; ///< null in a copy
    ScoreModelIndex _index;
};

} // namespace zarn
