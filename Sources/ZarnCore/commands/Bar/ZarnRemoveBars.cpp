// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

RemoveBars::RemoveBars() : ScoreCommand(QStringLiteral("RemoveBars")) { }
RemoveBars::~RemoveBars() = default;

bool RemoveBars::init(Score *score, unsigned first, unsigned last)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveBars::init", score != NULL);
    setScore(score);
    _first = first;
    _last = last;
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    return first <= last && expectPlace([this] { return isPossible(); });
}

bool RemoveBars::isPossible() const
{
    return _last < model().masterTrack()->masterBarCount();
}

void RemoveBars::apply()
{
    requirePlace(isPossible());
    const MasterTrack &master = *model().masterTrack();
    const double tempo = startTempo(master);
    _removed = model().takeBarColumns(_first, _last);
    _changes.start(_first, _last - _first + 1);
    _changes.addSurroundings(model(), _removed->surroundings, ColumnChanges::Columns::In);
    _changes.setMovementStart(*_removed);
    _changes.addDirections(_removed->surroundings.directions);
    _changes.addAutomations(*_removed);
    _changes.setStartTempos(tempo, startTempo(master));
}

void RemoveBars::revert()
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveBars::revert", _removed.has_value());
    model().putBackBarColumns(std::move(*_removed));
    _removed.reset();
}

void RemoveBars::announceApplied()
{
    score().notify(this, evt::RemoveBars(static_cast<int>(_first), count()));
    score().notify(this,
                   evt::ModifyBarRangeAllTracks(static_cast<int>(_first), static_cast<int>(_last)));
    _changes.announceOut(score(), this);
}

void RemoveBars::announceReverted()
{
    score().notify(this, evt::AddBars(static_cast<int>(_first), count()));
    score().notify(this,
                   evt::ModifyBarRangeAllTracks(static_cast<int>(_first), static_cast<int>(_last)));
    _changes.announceIn(score(), this);
}

} // namespace zarn::cmd
