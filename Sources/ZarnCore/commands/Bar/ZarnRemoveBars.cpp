// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

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
    _removed = model().takeBarColumns(_first, _last);
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
}

void RemoveBars::announceReverted()
{
    score().notify(this, evt::AddBars(static_cast<int>(_first), count()));
    score().notify(this,
                   evt::ModifyBarRangeAllTracks(static_cast<int>(_first), static_cast<int>(_last)));
}

} // namespace zarn::cmd
