// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>

#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <utility>

namespace zarn {

TrackPlacing::~TrackPlacing() = default;

bool TrackPlacing::prepareInsertion(Score *score, unsigned index, std::shared_ptr<Track> track)
{
    setScore(score);
    _index = index;
    _track = std::move(track);
    return canGoIn();
}

bool TrackPlacing::prepareRemoval(Score *score, unsigned index)
{
    setScore(score);
    _index = index;
    return model().hasTrackIndex(index);
}

/// A track that is longer than the score would lose music.
bool TrackPlacing::canGoIn() const
{
    if (_track == nullptr || _index > model().trackCount() || _track->parentScoreModel() != nullptr)
        return false;
    const auto &staves = _track->staves();
    return std::all_of(staves.begin(), staves.end(), [this](const auto &staff) {
        return staff->barCount() <= model().masterTrack()->masterBarCount();
    });
}

void TrackPlacing::putIn()
{
    requirePlace(canGoIn());
    model().insertTrack(_index, _track, true);
    _track.reset();
}

void TrackPlacing::takeOut()
{
    requirePlace(model().hasTrackIndex(_index));
    score().notify(this, evt::WillRemoveTrack(static_cast<int>(_index)));
    _track = model().removeTrack(_index);
}

void TrackPlacing::announceIn()
{
    score().notify(this, evt::RequestAddTracks(static_cast<int>(_index), 1));
}

void TrackPlacing::announceOut()
{
    score().notify(this, evt::RemoveTrack(static_cast<int>(_index)));
}

} // namespace zarn
