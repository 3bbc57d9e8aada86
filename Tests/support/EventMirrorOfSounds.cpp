// SPDX-License-Identifier: MIT
#include "EventMirror.h"

#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <utility>

using namespace zarn;

// Events of sounds.

void EventMirror::insertSound(int track, int index)
{
    const auto number = static_cast<unsigned>(index);
    head(track).insertSound(number, this->track(track).sounds().at(number));
}

void EventMirror::readSound(int track, int index)
{
    const auto number = static_cast<unsigned>(index);
    head(track).replaceSound(number, this->track(track).sounds().at(number));
}

void EventMirror::hear(const evt::RequestAddSound &event)
{
    insertSound(event.trackIndex(), event.soundIndex());
}

void EventMirror::hear(const evt::RequestInsertSound &event)
{
    insertSound(event.trackIndex(), event.soundIndex());
}

void EventMirror::hear(const evt::RequestRemoveSound &event)
{
    head(event.trackIndex()).removeSoundAtIndex(static_cast<unsigned>(event.soundIndex()));
}

void EventMirror::hear(const evt::RequestSoundChange &event)
{
    readSound(event.trackIndex(), event.soundIndex());
}

void EventMirror::hear(const evt::RequestSwapSounds &event)
{
    readSound(event.trackIndex(), event.first());
    readSound(event.trackIndex(), event.second());
}

void EventMirror::hear(const evt::RequestForcedSoundIndexChange &event)
{
    Track &known = head(event.trackIndex());
    expectOld(event.oldIndex(), event.newIndex(), known.forcedSoundIndex());
    known.setForcedSoundIndex(event.newIndex());
}

// Events of effects: those of the master track say themselves what is different.

void EventMirror::hear(const evt::TrackSoundEffectsChanged &event)
{
    readSound(event.trackIndex(), event.soundIndex());
}

void EventMirror::readMasterEffect(int track, int slot)
{
    if (track >= 0)
        return;
    const auto number = static_cast<unsigned>(slot);
    _known.head->masterTrack()->mutableMastering().mutableEffectChain().setEffect(
        number, model().masterTrack()->mastering().effectChain().effect(number));
}

void EventMirror::readMasterEffects(int track)
{
    if (track < 0)
        _known.head->masterTrack()->mutableMastering().setEffectChain(
            model().masterTrack()->mastering().effectChain());
}

void EventMirror::hear(const evt::RequestEffectDelete &event)
{
    readMasterEffect(event.trackIndex(), event.slot());
}

void EventMirror::hear(const evt::RequestEffectChange &event)
{
    readMasterEffect(event.trackIndex(), event.slot());
}

void EventMirror::hear(const evt::RequestEffectBypassChange &event)
{
    if (event.trackIndex() < 0)
        _known.head->masterTrack()->mutableMastering().mutableEffectChain().setBypassed(
            static_cast<unsigned>(event.slot()), event.isBypassed());
}

void EventMirror::hear(const evt::RequestEffectParametersChange &event)
{
    readMasterEffect(event.trackIndex(), event.slot());
}

void EventMirror::hear(const evt::RequestEffectChainChange &event)
{
    readMasterEffects(event.trackIndex());
}

void EventMirror::hear(const evt::RequestEffectChainClear &event)
{
    readMasterEffects(event.trackIndex());
}

void EventMirror::hear(const evt::RequestEffectsSwap &event)
{
    // Read, not swapped: taking back may tell of what was never told.
    readMasterEffect(event.trackIndex(), event.first());
    readMasterEffect(event.trackIndex(), event.second());
}

// Events of the mixer.

void EventMirror::hear(const evt::RequestMasterTrackChannelStripChange &)
{
    _known.head->masterTrack()->setVolumePan(model().masterTrack()->volumePan());
}

void EventMirror::hear(const evt::RequestMasterTrackChannelStripParameterChange &event)
{
    ZarnVolumePan known = _known.head->masterTrack()->volumePan();
    const ZarnVolumePan &now = model().masterTrack()->volumePan();
    if (static_cast<ChannelStripParameter>(event.index()) == ChannelStripParameter::Volume)
        known.setVolume(now.volume());
    else
        known.setPan(now.pan());
    _known.head->masterTrack()->setVolumePan(known);
}

void EventMirror::hear(const evt::RequestTrackChannelStripChange &event)
{
    head(event.trackIndex()).setVolumePan(track(event.trackIndex()).volumePan());
}

// Events of how tracks are arranged and played.

void EventMirror::readTrackGroups()
{
    _known.head->setTrackGroups(model().trackGroups());
}

void EventMirror::hear(const evt::SwapTrack &event)
{
    std::swap(_known.tracks.at(static_cast<std::size_t>(event.first())),
              _known.tracks.at(static_cast<std::size_t>(event.second())));
    readTrackGroups();
}

void EventMirror::hear(const evt::TrackColorChanged &event)
{
    head(event.trackIndex()).setColor(track(event.trackIndex()).color());
}

void EventMirror::hear(const evt::LetRingThroughoutChanged &event)
{
    head(event.trackIndex()).setLetRingThroughout(event.isEnabled());
}

void EventMirror::hear(const evt::AutoAccentuationChanged &event)
{
    head(event.trackIndex()).setAutoAccentuation(event.isEnabled());
}

void EventMirror::hear(const evt::PalmMuteChanged &event)
{
    head(event.trackIndex()).setPalmMuteStrength(track(event.trackIndex()).palmMuteStrength());
}

void EventMirror::hear(const evt::AutoBrushChanged &event)
{
    head(event.trackIndex()).setAutoBrush(event.isEnabled());
}

void EventMirror::hear(const evt::TrackPlayback &event)
{
    head(event.trackIndex()).setPlayback(track(event.trackIndex()).playback());
}

void EventMirror::hear(const evt::PlayingStyleChanged &event)
{
    head(event.trackIndex()).setPlayingStyle(track(event.trackIndex()).playingStyle());
}

void EventMirror::hear(const evt::UseOneChannelOrkaPerStringChanged &event)
{
    head(event.trackIndex()).setOneChannelPerString(event.isEnabled());
}

/// Staves that come and go, and no more: what stays is as it was.
void EventMirror::hear(const evt::RequestTrackStaffChanged &event)
{
    ScoreCopy::TrackCopy &known = _known.tracks.at(static_cast<std::size_t>(event.trackIndex()));
    const ScoreCopy::TrackCopy now(track(event.trackIndex()));
    const std::size_t count = now.staves.size();
    if (known.staves.size() >= count) {
        known.staves.resize(count);
        known.head->takeStavesFrom(static_cast<unsigned>(count));
        return;
    }
    const auto added = static_cast<unsigned>(known.staves.size());
    known.head->addStaves(now.head->takeStavesFrom(added));
    known.staves.insert(known.staves.end(), now.staves.begin() + added, now.staves.end());
}

void EventMirror::hear(const evt::MIDIConnectionChanged &event)
{
    head(event.trackIndex()).setMidiConnection(track(event.trackIndex()).chosenMidiConnection());
}
