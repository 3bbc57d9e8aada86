// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnSetForcedSoundIndex.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetForcedSoundIndex::SetForcedSoundIndex() : ScoreCommand(QStringLiteral("SetForcedSoundIndex")) { }
SetForcedSoundIndex::~SetForcedSoundIndex() = default;

bool SetForcedSoundIndex::init(Score *score, unsigned track, int index)
{
    ZARN_ASSERT_IN("zarn::cmd::SetForcedSoundIndex::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Index"), QString::number(index));
    setScore(score);
    _track = track;
    _index = index;
    return index >= TrackSettings::NoForcedSound && expectPlace([this] { return isPossible(); });
}

bool SetForcedSoundIndex::isPossible() const
{
    return model().hasTrackIndex(_track)
        && _index < static_cast<int>(model().tracks()[_track]->sounds().size());
}

void SetForcedSoundIndex::apply()
{
    requirePlace(isPossible());
    Track &track = *model().tracks()[_track];
    _before = track.forcedSoundIndex();
    track.setForcedSoundIndex(_index);
}

void SetForcedSoundIndex::revert()
{
    model().tracks()[_track]->setForcedSoundIndex(_before);
}

void SetForcedSoundIndex::announceApplied()
{
    score().notify(this,
                   evt::RequestForcedSoundIndexChange(static_cast<int>(_track), _before, _index));
}

void SetForcedSoundIndex::announceReverted()
{
    score().notify(this,
                   evt::RequestForcedSoundIndexChange(static_cast<int>(_track), _index, _before));
}

} // namespace zarn::cmd
