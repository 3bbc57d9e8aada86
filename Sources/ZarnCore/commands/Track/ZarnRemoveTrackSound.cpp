// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnRemoveTrackSound.h>

#include <ZarnCore/ZarnAssert.h>
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
    model().tracks()[_track]->insertSound(_index, _sound);
}

void RemoveTrackSound::takeOut()
{
    requirePlace(isPossible());
    _sound = model().tracks()[_track]->removeSoundAtIndex(_index);
}

void RemoveTrackSound::announceIn()
{
    score().notify(this,
                   evt::RequestInsertSound(static_cast<int>(_track), static_cast<int>(_index)));
}

void RemoveTrackSound::announceOut()
{
    score().notify(this,
                   evt::RequestRemoveSound(static_cast<int>(_track), static_cast<int>(_index)));
}

} // namespace zarn::cmd
