// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnSwapTrackSounds.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Sounds/ForcedSound.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn::cmd {

SwapTrackSounds::SwapTrackSounds() : ScoreCommand(QStringLiteral("SwapTrackSounds")) { }
SwapTrackSounds::~SwapTrackSounds() = default;

bool SwapTrackSounds::init(Score *score, unsigned track, unsigned first, unsigned second)
{
    ZARN_ASSERT_IN("zarn::cmd::SwapTrackSounds::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Second"), QString::number(second));
    setScore(score);
    _track = track;
    _first = first;
    _second = second;
    return first != second && expectPlace([this] { return isPossible(); });
}

bool SwapTrackSounds::isPossible() const
{
    return model().hasTrackIndex(_track)
        && std::max(_first, _second) < model().tracks()[_track]->sounds().size();
}

void SwapTrackSounds::apply()
{
    requirePlace(isPossible());
    Track &track = *model().tracks()[_track];
    _forcedBefore = track.forcedSoundIndex();
    _forcedAfter = _forcedBefore;
    if (_forcedBefore == static_cast<int>(_first))
        _forcedAfter = static_cast<int>(_second);
    else if (_forcedBefore == static_cast<int>(_second))
        _forcedAfter = static_cast<int>(_first);
    track.swapSounds(_first, _second);
    track.setForcedSoundIndex(_forcedAfter);
}

void SwapTrackSounds::revert()
{
    Track &track = *model().tracks()[_track];
    track.swapSounds(_first, _second);
    track.setForcedSoundIndex(_forcedBefore);
}

void SwapTrackSounds::announceApplied()
{
    announce(_forcedBefore, _forcedAfter);
}

void SwapTrackSounds::announceReverted()
{
    announce(_forcedAfter, _forcedBefore);
}

void SwapTrackSounds::announce(int forcedBefore, int forcedAfter)
{
    score().notify(this,
                   evt::RequestSwapSounds(static_cast<int>(_track), static_cast<int>(_first),
                                          static_cast<int>(_second)));
    announceForcedSound(score(), this, _track, forcedBefore, forcedAfter);
}

} // namespace zarn::cmd
