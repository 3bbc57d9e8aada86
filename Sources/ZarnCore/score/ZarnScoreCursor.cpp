// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <utility>

namespace zarn {

namespace {

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

void ScoreCursor::moveToCursor(const ScoreCursor &other)
{
    setIndex(other._index);
}

void ScoreCursor::setIndex(const ScoreModelIndex &index)
{
    if (isSamePlace(index, _index))
        return;
    if (_score == nullptr) {
        _index = index;
        return;
    }
    ScoreModelIndex place = index;
    place.setModel(_score->scoreModel().get());
    if (isSamePlace(place, _index))
        return;
    const ScoreModelIndex before = std::exchange(_index, place);
    _score->notify(this, evt::ScoreCursorMoved(before, place));
}

} // namespace zarn
