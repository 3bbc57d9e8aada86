// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnRemoveTrackSound.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Sounds/ForcedSound.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

RemoveTrackSound::RemoveTrackSound()
    : PlacingCommand(QStringLiteral("RemoveTrackSound"), Kind::Removes)
{
}
RemoveTrackSound::~RemoveTrackSound() = default;

bool RemoveTrackSound::init(Score *score, unsigned track, unsigned index)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveTrackSound::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Index"), QString::number(index));
    setScore(score);
    _track = track;
    _index = index;
    return expectPlace([this] { return isPossible(); });
}

bool RemoveTrackSound::isPossible() const
{
    return model().hasTrackIndex(_track) && _index < model().tracks()[_track]->sounds().size();
}

void RemoveTrackSound::putIn()
{
    Track &track = *model().tracks()[_track];
    track.insertSound(_index, _sound);
    track.setForcedSoundIndex(_forcedBefore);
}

void RemoveTrackSound::takeOut()
{
    requirePlace(isPossible());
    Track &track = *model().tracks()[_track];
    const int index = static_cast<int>(_index);
    _forcedBefore = track.forcedSoundIndex();
    _forcedAfter = _forcedBefore;
    if (_forcedBefore == index)
        _forcedAfter = TrackSettings::NoForcedSound;
    else if (_forcedBefore > index)
        --_forcedAfter;
    _sound = track.removeSoundAtIndex(_index);
    track.setForcedSoundIndex(_forcedAfter);
}

void RemoveTrackSound::announceIn()
{
    score().notify(this,
                   evt::RequestInsertSound(static_cast<int>(_track), static_cast<int>(_index)));
    announceForcedSound(score(), this, _track, _forcedAfter, _forcedBefore);
}

void RemoveTrackSound::announceOut()
{
    score().notify(this,
                   evt::RequestRemoveSound(static_cast<int>(_track), static_cast<int>(_index)));
    announceForcedSound(score(), this, _track, _forcedBefore, _forcedAfter);
}

} // namespace zarn::cmd
