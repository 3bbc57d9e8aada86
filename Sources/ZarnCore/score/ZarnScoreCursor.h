// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace zarn {

class Score;

/// What a cursor steps over. All steps lead forth in time or down the page.
enum class CursorStep : std::uint8_t {
    /// Through a voice, grace beats too. Behind the last beat of a bar that is not full (always in
    /// free time) comes the place where the next beat is entered; a voice without beats has only
    /// that place, with the number 0. Then comes the next bar.
    /// In a 3/4 bar of two quarters: beat 0, beat 1, the place 2, beat 0 of the next bar.
    Beat,

    /// To the first beat of the next or previous bar: from bar 3, beat 2 to bar 4, beat 0.
    Bar,

    /// Through the four voice slots of the bar, with or without beats. Voices, staves and tracks
    /// keep the time: the beat that starts nearest to where this one does as written, the earlier
    /// of two. From the third of four quarters to the second of two halves.
    Voice,

    /// From the highest string to the lowest, in the order in which players count them: on a guitar
    /// from 5 (e') to 4 (b). On a staff without strings, from the highest note of the beat to the
    /// lowest, which the place then names by its MIDI key; from no note to the first of them.
    String,

    Staff, ///< Through the staves of the track.

    /// Through the tracks, on the staff with the same number or the last one: from the left hand
    /// of a piano to a flute's only staff.
    Track,
};

/// The editing position of a score: a place in its model. Each score has one cursor, which sends
/// `ScoreCursorMoved` when its place changes, once for each move; copies of it are saved places
/// that move in the same ways and send nothing.
///
/// A place is a bar, and in it a beat, none, or the place one past the last beat. An edit never
/// leaves the cursor on a place that it took away: see `settle`.
///
/// With the place go a string, which stays with the cursor and is clipped where a staff has fewer,
/// and what names a note in its beat by key or element, which goes when the beat is left.
class ZARNCORE_EXPORT ScoreCursor {
public:
    /// The cursor of a score, which must outlive it; at no place yet.
    explicit ScoreCursor(Score *score);

    ScoreCursor(const ScoreCursor &other) noexcept
        : _index(other._index), _hasGround(other._hasGround)
    {
    }

    /// The same as `moveToCursor`.
    ScoreCursor &operator=(const ScoreCursor &other);

    ~ScoreCursor() = default;

    /// A copy of the current position.
    std::unique_ptr<ScoreCursor> cloneScoreCursor() const;

    /// Takes over the place of another cursor, in the score of this one; where that existed and
    /// does not any more, the nearest one that does.
    void moveToCursor(const ScoreCursor &other);

    const ScoreModelIndex &index() const noexcept { return _index; }

    /// Moves to a place. A score's own cursor resolves it in the model of its score, whatever
    /// model the index came from. A place need not exist, and is kept until it does.
    void setIndex(const ScoreModelIndex &index);

    /// Whether there is such a place, with such a string where the staff has strings. Whether there
    /// is such a note is for the index to say.
    bool isValid() const noexcept;

    // Moving. Each answers whether there is such a place, and goes there; otherwise the cursor
    // stays: at the ends of the score it does not wrap around.

    /// One step. From a place that does not exist both lead to the nearest one that does, from no
    /// place at all to the first beat of the score, on the highest string.
    bool next(CursorStep step);
    bool previous(CursorStep step);

    /// To the first or last beat of the bar (the last one that is there), bar of the score, voice,
    /// string from the top, staff of the track, track.
    bool toFirst(CursorStep step);
    bool toLast(CursorStep step);

    /// To a beat of the bar or behind its last one, to the first beat of a bar, to a voice, staff
    /// or track at the same time, or to a string (0 the lowest); all counted from 0.
    bool to(CursorStep step, int number);

    /// Moves to the nearest place that exists when the one where the cursor stood is gone: each
    /// number of the place is clipped to what there is, the beat to one past the last. Without
    /// tracks or bars there is none, and the cursor stands nowhere. A place that never existed is
    /// left alone.
    ///
    /// The command stack does this at the end of each step, once for a macro: when the change is
    /// done, before `CommandExecuted`, and under its lock. Until then a listener of the step's own
    /// events may find the cursor on a place that has just gone. A step that raised has taken its
    /// changes back and the cursor stands where it was. After changing a model without commands,
    /// call this yourself. Constant time.
    void settle()
    {
        if (_hasGround || _index.trackIndex() >= 0)
            settleOnGround();
    }

private:
    void settleOnGround();
    bool go(const std::optional<ScoreModelIndex> &target);
    ScoreModelIndex start() const;
    void moveTo(const ScoreModelIndex &place);

    Score *_score = nullptr; ///< null in a copy
    ScoreModelIndex _index;
    bool _hasGround = false; ///< whether the place existed when it was last looked at
};

} // namespace zarn
