// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>

#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/instruments/automations/AutomationRange.h>
#include <ZarnCore/instruments/sounds/SoundRange.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

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

/// Whether it has nothing that could be neither played nor saved with the score.
bool canBePlayed(const Track &track)
{
    const auto &sounds = track.sounds();
    if (!std::all_of(sounds.begin(), sounds.end(),
                     [](const auto &sound) { return isInRange(*sound); }))
        return false;
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot)
        for (const Automation *const automation :
             track.automations().automations(Automation::idType(slot)))
            if (!isInRange(*automation))
                return false;
    return true;
}

} // namespace

TrackPlacing::~TrackPlacing() = default;

/// A track that is longer than the score would lose music.
bool TrackPlacing::canGoIn(unsigned index, const std::shared_ptr<Track> &track) const
{
    return track != nullptr && index <= model().trackCount() && track->parentScoreModel() == nullptr
        && fits(*track, model().masterTrack()->masterBarCount()) && canBePlayed(*track);
}

bool TrackPlacing::canGoOut(unsigned index) const
{
    return model().hasTrackIndex(index);
}

void TrackPlacing::insert(unsigned index, const std::shared_ptr<Track> &track)
{
    auto groups = model().trackGroups();
    model().insertTrack(index, track, true);
    settleGroups(std::move(groups));
}

std::shared_ptr<Track> TrackPlacing::remove(unsigned index)
{
    score().notify(this, evt::WillRemoveTrack(static_cast<int>(index)));
    auto groups = model().trackGroups();
    auto track = model().removeTrack(index);
    settleGroups(std::move(groups));
    return track;
}

/// Keeps the groups that the command found; undo gives them back.
void TrackPlacing::settleGroups(TrackGroups found)
{
    if (_groupsBefore) {
        model().setTrackGroups(*std::move(_groupsBefore));
        _groupsBefore.reset();
    } else {
        _groupsBefore = std::move(found);
    }
}

void TrackPlacing::announceIn()
{
    score().notify(this, evt::RequestAddTracks(index(), 1));
}

void TrackPlacing::announceOut()
{
    score().notify(this, evt::RemoveTrack(index()));
}

} // namespace zarn
