// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnTrackSoundChange.h>

#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

/// Place in the list of the sound that an automation means; -1 for none of them.
int indexMeant(const Track &track, const std::shared_ptr<const Sound> &sound)
{
    const Track::Sounds &sounds = track.sounds();
    const auto same = std::find(sounds.begin(), sounds.end(), sound);
    if (same != sounds.end())
        return static_cast<int>(same - sounds.begin());
    return sound != nullptr ? track.indexOfSound(*sound) : -1;
}

SoundAutomation *soundAutomationAt(const Track &track, std::uint32_t bar, float position)
{
    return dynamic_cast<SoundAutomation *>(
        track.automations().automation(Automation::Sound, bar, position));
}

} // namespace

void TrackSoundChange::apply(Track &track, unsigned index, std::shared_ptr<const Sound> sound)
{
    _index = index;
    _switches.clear();
    for (const Automation *automation : track.automations().automations(Automation::Sound)) {
        const auto *const change = dynamic_cast<const SoundAutomation *>(automation);
        if (change != nullptr && indexMeant(track, change->sound()) == static_cast<int>(index))
            _switches.push_back({change->index(), change->position(), change->sound()});
    }
    for (const Switch &change : _switches)
        soundAutomationAt(track, change.bar, change.position)->setSound(sound);
    _before = track.replaceSound(index, std::move(sound));
}

void TrackSoundChange::revert(Track &track)
{
    track.replaceSound(_index, _before);
    for (const Switch &change : _switches)
        soundAutomationAt(track, change.bar, change.position)->setSound(change.sound);
}

void TrackSoundChange::announceAutomations(ScoreBase &score, const void *sender,
                                           unsigned track) const
{
    if (_switches.empty())
        return;
    zarn::announceAutomations(score, sender, static_cast<int>(track), Automation::Sound,
                              static_cast<int>(_switches.front().bar),
                              static_cast<int>(_switches.back().bar));
    score.notify(sender, evt::AutomationChanged());
}

} // namespace zarn
