// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnAudioTrackPlacing.h>

#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <utility>

namespace zarn {

AudioTrackPlacing::~AudioTrackPlacing() = default;

bool AudioTrackPlacing::prepareInsertion(Score *score, unsigned index,
                                         std::shared_ptr<AudioTrack> track)
{
    setScore(score);
    _index = index;
    _track = std::move(track);
    return canGoIn();
}

bool AudioTrackPlacing::prepareRemoval(Score *score, unsigned index)
{
    setScore(score);
    _index = index;
    return canGoOut();
}

bool AudioTrackPlacing::canGoIn() const
{
    const auto &tracks = model().audioTracks();
    return _track != nullptr && _index <= tracks.size()
        && std::find(tracks.begin(), tracks.end(), _track) == tracks.end();
}

bool AudioTrackPlacing::canGoOut() const
{
    return _index < model().audioTrackCount();
}

void AudioTrackPlacing::putIn()
{
    requirePlace(canGoIn());
    model().insertAudioTrack(_index, _track);
    _track.reset();
}

void AudioTrackPlacing::takeOut()
{
    requirePlace(canGoOut());
    _track = model().removeAudioTrack(_index);
}

void AudioTrackPlacing::announceIn()
{
    score().notify(this, evt::AddAudioTrack(static_cast<int>(_index)));
}

void AudioTrackPlacing::announceOut()
{
    score().notify(this, evt::RemoveAudioTrack(static_cast<int>(_index)));
}

} // namespace zarn
