// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>

#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

/// Neither bars nor automations past a number of bars. Starting values stay at bar 0 even when the
/// score has no bars.
bool fits(const Track &track, unsigned barCount)
{
    const auto &staves = track.staves();
    const bool isShort = std::all_of(staves.begin(), staves.end(), [barCount](const auto &staff) {
        return staff->barCount() <= barCount;
    });
    for (unsigned slot = 0; isShort && slot < Automation::automationTypeCount; ++slot) {
        const auto automations = track.automations().automations(Automation::idType(slot));
        if (!automations.empty() && automations.back()->index() >= std::max(barCount, 1U))
            return false;
    }
    return isShort;
}

} // namespace

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
    return _track != nullptr && _index <= model().trackCount()
        && _track->parentScoreModel() == nullptr
        && fits(*_track, model().masterTrack()->masterBarCount());
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
