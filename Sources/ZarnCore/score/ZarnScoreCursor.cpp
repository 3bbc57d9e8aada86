// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/CursorPlaces.h>
#include <ZarnCore/score/ZarnScore.h>

#include <utility>

namespace zarn {

namespace {

using cursor::Way;

bool isSamePlace(const ScoreModelIndex &a, const ScoreModelIndex &b)
{
    return a == b && a.noteInstrumentArticulation() == b.noteInstrumentArticulation();
}

} // namespace

ScoreCursor::ScoreCursor(Score *score) : _score(score)
{
    if (_score != nullptr)
        _index.setModel(_score->scoreModel().get());
}

ScoreCursor &ScoreCursor::operator=(const ScoreCursor &other)
{
    moveToCursor(other);
    return *this;
}

std::unique_ptr<ScoreCursor> ScoreCursor::cloneScoreCursor() const
{
    return std::make_unique<ScoreCursor>(*this);
}

// Most steps are undone where the cursor stood: that is all they ask.
void ScoreCursor::moveToCursor(const ScoreCursor &other)
{
    ScoreModel *const model = _score != nullptr ? _score->scoreModel().get() : other._index.model();
    if (_index.model() == model && _hasGround == other._hasGround
        && isSamePlace(other._index, _index)) {
        settle();
        return;
    }
    ScoreModelIndex place = other._index;
    place.setModel(model);
    moveTo(other._hasGround && !cursor::exists(place) ? cursor::nearest(place) : place);
}

void ScoreCursor::setIndex(const ScoreModelIndex &index)
{
    ScoreModelIndex place = index;
    if (_score != nullptr)
        place.setModel(_score->scoreModel().get());
    moveTo(place);
}

bool ScoreCursor::isValid() const noexcept
{
    return cursor::exists(_index);
}

bool ScoreCursor::next(CursorStep step)
{
    return go(isValid() ? cursor::neighbour(_index, step, Way::Forth) : start());
}

bool ScoreCursor::previous(CursorStep step)
{
    return go(isValid() ? cursor::neighbour(_index, step, Way::Back) : start());
}

bool ScoreCursor::toFirst(CursorStep step)
{
    return go(cursor::end(start(), step, Way::Back));
}

bool ScoreCursor::toLast(CursorStep step)
{
    return go(cursor::end(start(), step, Way::Forth));
}

bool ScoreCursor::to(CursorStep step, int number)
{
    return go(cursor::numbered(start(), step, number));
}

void ScoreCursor::settleOnGround()
{
    if (cursor::exists(_index))
        _hasGround = true;
    else if (_hasGround)
        moveTo(cursor::nearest(_index));
}

/// Where a move begins: here, or at the nearest place that exists.
ScoreModelIndex ScoreCursor::start() const
{
    return isValid() ? _index : cursor::nearest(_index);
}

bool ScoreCursor::go(const std::optional<ScoreModelIndex> &target)
{
    if (!target || !cursor::exists(*target))
        return false;
    moveTo(*target);
    return true;
}

void ScoreCursor::moveTo(const ScoreModelIndex &place)
{
    _hasGround = cursor::exists(place);
    if (isSamePlace(place, _index))
        return;
    const ScoreModelIndex before = std::exchange(_index, place);
    if (_score != nullptr)
        _score->notify(this, evt::ScoreCursorMoved(before, _index));
}

} // namespace zarn
