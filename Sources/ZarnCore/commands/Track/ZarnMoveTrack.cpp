// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnMoveTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

MoveTrack::MoveTrack() : ScoreCommand(QStringLiteral("MoveTrack")) { }
MoveTrack::~MoveTrack() = default;

bool MoveTrack::init(Score *score, unsigned from, unsigned to)
{
    ZARN_ASSERT_IN("zarn::cmd::MoveTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(from));
    addArg(QStringLiteral("Index"), QString::number(to));
    setScore(score);
    _from = from;
    _to = to;
    _announced = static_cast<int>(from);
    return from != to && expectPlace([this] { return isPossible(); });
}

bool MoveTrack::isPossible() const
{
    return model().hasTrackIndex(_from) && model().hasTrackIndex(_to);
}

void MoveTrack::apply()
{
    requirePlace(isPossible());
    _groupsBefore = model().trackGroups();
    model().moveTrack(_from, _to);
}

void MoveTrack::revert()
{
    model().moveTrack(_to, _from);
    model().setTrackGroups(_groupsBefore);
}

void MoveTrack::announceApplied()
{
    announceUpTo(static_cast<int>(_to));
}

void MoveTrack::announceReverted()
{
    announceUpTo(static_cast<int>(_from));
}

/// A listener may fail on the way: what is announced then begins where the others are.
void MoveTrack::announceUpTo(int index)
{
    while (_announced != index) {
        const int before = _announced;
        _announced += before < index ? 1 : -1;
        score().notify(this, evt::SwapTrack(before, _announced));
    }
}

} // namespace zarn::cmd
