// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnAudioTrackPlacing.h>

#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

AudioTrackPlacing::~AudioTrackPlacing() = default;

bool AudioTrackPlacing::canGoIn(unsigned index, const std::shared_ptr<AudioTrack> &track) const
{
    const auto &tracks = model().audioTracks();
    return track != nullptr && track->isPossible() && index <= tracks.size()
        && std::find(tracks.begin(), tracks.end(), track) == tracks.end();
}

bool AudioTrackPlacing::canGoOut(unsigned index) const
{
    return index < model().audioTrackCount();
}

void AudioTrackPlacing::insert(unsigned index, const std::shared_ptr<AudioTrack> &track)
{
    model().insertAudioTrack(index, track);
}

std::shared_ptr<AudioTrack> AudioTrackPlacing::remove(unsigned index)
{
    return model().removeAudioTrack(index);
}

void AudioTrackPlacing::announceIn()
{
    score().notify(this, evt::AddAudioTrack(index()));
}

void AudioTrackPlacing::announceOut()
{
    score().notify(this, evt::RemoveAudioTrack(index()));
}

} // namespace zarn
