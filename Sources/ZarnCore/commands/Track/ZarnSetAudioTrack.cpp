// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetAudioTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

SetAudioTrack::SetAudioTrack() : ScoreCommand(QStringLiteral("SetAudioTrack")) { }
SetAudioTrack::~SetAudioTrack() = default;

bool SetAudioTrack::init(Score *score, unsigned index, const AudioTrack &track)
{
    ZARN_ASSERT_IN("zarn::cmd::SetAudioTrack::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(index));
    addArg(QStringLiteral("Name"), QString::fromStdString(track.name()));
    setScore(score);
    _index = index;
    _other = track;
    return track.isPossible() && expectPlace([this] { return isThere(); });
}

bool SetAudioTrack::isThere() const
{
    return _index < model().audioTrackCount();
}

void SetAudioTrack::apply()
{
    requirePlace(isThere());
    std::swap(*model().audioTracks()[_index], _other);
}

void SetAudioTrack::revert()
{
    apply();
}

void SetAudioTrack::announceApplied()
{
    score().notify(this, evt::AudioTrackChanged(static_cast<int>(_index)));
}

void SetAudioTrack::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
