// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetStaffCount.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

SetStaffCount::SetStaffCount() : ScoreCommand(QStringLiteral("SetStaffCount")) { }
SetStaffCount::~SetStaffCount() = default;

bool SetStaffCount::init(Score *score, unsigned track, unsigned count)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStaffCount::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(count));
    setScore(score);
    _track = track;
    _count = count;
    return count >= 1 && count <= MostStaves
        && expectPlace([&] { return model().hasTrackIndex(track); });
}

Track &SetStaffCount::track() const
{
    return *model().tracks()[_track];
}

void SetStaffCount::apply()
{
    requirePlace(model().hasTrackIndex(_track));
    _countBefore = track().staffCount();
    for (unsigned staff = _count; staff < _countBefore; ++staff)
        keepSpans(_track, staff, 0, track().barCount());
    if (_count <= _countBefore)
        _staves = track().takeStavesFrom(_count);
    else if (_staves.empty())
        track().setStaffCount(_count);
    else // the same ones again after an undo
        track().addStaves(std::exchange(_staves, {}));
}

void SetStaffCount::revert()
{
    if (_count <= _countBefore)
        track().addStaves(std::exchange(_staves, {}));
    else
        _staves = track().takeStavesFrom(_countBefore);
}

void SetStaffCount::announceApplied()
{
    score().notify(this, evt::RequestTrackStaffChanged(static_cast<int>(_track)));
}

void SetStaffCount::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
