// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnSetTrackSound.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/instruments/sounds/SoundRange.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

SetTrackSound::SetTrackSound() : ScoreCommand(QStringLiteral("SetTrackSound")) { }
SetTrackSound::~SetTrackSound() = default;

bool SetTrackSound::init(Score *score, unsigned track, unsigned index,
                         std::shared_ptr<const Sound> sound)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackSound::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Index"), QString::number(index));
    if (sound != nullptr)
        addArg(QStringLiteral("Type"), QString::fromStdString(sound->fullName()));
    setScore(score);
    _track = track;
    _index = index;
    _sound = std::move(sound);
    return _sound != nullptr && isInRange(*_sound) && expectPlace([this] { return isPossible(); });
}

bool SetTrackSound::isPossible() const
{
    return model().hasTrackIndex(_track) && _index < model().tracks()[_track]->sounds().size();
}

void SetTrackSound::apply()
{
    requirePlace(isPossible());
    _change.apply(*model().tracks()[_track], _index, _sound);
}

void SetTrackSound::revert()
{
    _change.revert(*model().tracks()[_track]);
}

void SetTrackSound::announceApplied()
{
    score().notify(this,
                   evt::RequestSoundChange(static_cast<int>(_track), static_cast<int>(_index)));
    _change.announceAutomations(score(), this, _track);
}

void SetTrackSound::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
