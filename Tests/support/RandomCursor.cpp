// SPDX-License-Identifier: MIT
#include "RandomCursor.h"

#include "RandomPlaces.h"

#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

using namespace zarn;

RandomCursor::RandomCursor(Score &score, std::uint64_t seed)
    : _score(score), _random(seed), _announced(score.scoreCursor().index())
{
    _connections.push_back(score.connectScoped<evt::ScoreCursorMoved>(
        this, [this](const evt::ScoreCursorMoved &moved) {
            if (moved.oldValue() != _announced)
                _fault =
                    "the cursor moved unheard to " + moved.oldValue().toQString().toStdString();
            _announced = moved.newValue();
        }));
    _connections.push_back(score.connectScoped<evt::CommandPushed>(
        this, [this](const evt::CommandPushed &) { startStep(); }));
    _connections.push_back(score.connectScoped<evt::CommandWillRedo>(
        this, [this](const evt::CommandWillRedo &) { startStep(); }));
    _connections.push_back(score.connectScoped<evt::CommandWillUndo>(
        this, [this](const evt::CommandWillUndo &) { _isUndo = true; }));
    _connections.push_back(score.connectScoped<evt::CommandExecuted>(
        this, [this](const evt::CommandExecuted &) { endStep(); }));
}

void RandomCursor::startStep()
{
    _isUndo = false;
    _before = _score.scoreCursor().index();
    _stepsBefore = _score.commandStack().undoCount();
}

// A step that raised has not got here: it left no trace in the ring either. Nor did a transaction
// that was taken back, which does end here.
void RandomCursor::endStep()
{
    if (!_isUndo && _score.commandStack().undoCount() != _stepsBefore) {
        _saved.push_back(_before);
        return;
    }
    if (!_isUndo) {
        if (_score.scoreCursor().index() != _before && _fault.empty())
            _fault = "taken back, the cursor is not back at " + _before.toQString().toStdString();
        return;
    }
    if (_score.scoreCursor().index() != _saved.back() && _fault.empty())
        _fault = "undone, the cursor is not back at " + _saved.back().toQString().toStdString();
    _saved.pop_back();
}

// A place that never existed is nobody's to keep.
void RandomCursor::move()
{
    ScoreCursor &cursor = _score.scoreCursor();
    const auto step = static_cast<CursorStep>(_random.below(6));
    switch (_random.below(6)) {
    case 0:
        cursor.setIndex(RandomPlaces(_score.scoreModel(), _random).gap());
        break;
    case 1:
        cursor.toLast(_random.coin() ? CursorStep::Bar : CursorStep::Track);
        cursor.toLast(step);
        break;
    case 2:
        cursor.previous(step);
        break;
    default:
        cursor.next(step);
    }
    if (!cursor.isValid() && !cursor.toFirst(CursorStep::Bar))
        cursor.setIndex(ScoreModelIndex());
}

std::string RandomCursor::fault() const
{
    const ScoreModelIndex &place = _score.scoreCursor().index();
    const std::string where = place.toQString().toStdString();
    if (!_fault.empty())
        return _fault;
    if (place != _announced)
        return "nobody heard that the cursor moved to " + where;
    const ScoreModel &model = *_score.scoreModel();
    if (place.trackIndex() == -1)
        return {};
    const auto bar = place.bar();
    if (bar == nullptr)
        return "the cursor stands on no bar: " + where;
    const auto voice = bar->voice(place.voiceIndex());
    const int beats = voice != nullptr ? static_cast<int>(voice->beatCount()) : 0;
    if (place.voiceIndex() >= Bar::MaxVoices || place.beatIndex() < -1 || place.beatIndex() > beats)
        return "the cursor stands on no beat: " + where;
    const unsigned strings =
        model.track(place.trackIndex())->staff(place.staffIndex())->tuning().stringCount();
    if (strings != 0 && place.noteString() != ScoreModelIndex::Unset
        && place.noteString() >= strings)
        return "the cursor stands on no string: " + where;
    return {};
}
