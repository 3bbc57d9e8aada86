// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnAddTrackSound.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/instruments/sounds/SoundRange.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

AddTrackSound::AddTrackSound() : PlacingCommand(QStringLiteral("AddTrackSound"), Kind::Inserts) { }
AddTrackSound::~AddTrackSound() = default;

bool AddTrackSound::init(Score *score, unsigned track, std::shared_ptr<const Sound> sound)
{
    ZARN_ASSERT_IN("zarn::cmd::AddTrackSound::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    if (sound != nullptr)
        addArg(QStringLiteral("Type"), QString::fromStdString(sound->fullName()));
    setScore(score);
    _track = track;
    _sound = std::move(sound);
    return _sound != nullptr && isInRange(*_sound)
        && expectPlace([&] { return model().hasTrackIndex(track); });
}

void AddTrackSound::putIn()
{
    requirePlace(model().hasTrackIndex(_track));
    Track &track = *model().tracks()[_track];
    const auto index = static_cast<unsigned>(track.sounds().size());
    track.addSound(_sound);
    _index = index;
}

void AddTrackSound::takeOut()
{
    model().tracks()[_track]->removeSoundAtIndex(_index);
}

void AddTrackSound::announceIn()
{
    score().notify(this, evt::RequestAddSound(static_cast<int>(_track), static_cast<int>(_index)));
}

void AddTrackSound::announceOut()
{
    score().notify(this,
                   evt::RequestRemoveSound(static_cast<int>(_track), static_cast<int>(_index)));
}

} // namespace zarn::cmd
