// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <limits>
#include <string>

using namespace zarn;

namespace {

constexpr int master = -1;

/// Few names, so that some sounds are equal.
Sound sound(Random &random)
{
    Sound sound("Sound " + std::to_string(random.below(3)), MIDISound(random.between(0, 1)));
    if (random.coin())
        sound.mutableOrkaSound().mutableEffectChain().setEffect(random.below(4),
                                                                Mastering::makeReverb());
    return sound;
}

Effect effect(Random &random)
{
    const float knob = random.percent(3) ? std::numeric_limits<float>::infinity() : 0.5F;
    Effect effect(random.percent(3) ? "" : "effect " + std::to_string(random.below(3)), "Effect",
                  std::vector<float>(random.below(3), knob));
    effect.setBypassed(random.coin());
    return effect;
}

unsigned slot(Random &random)
{
    return random.percent(3) ? EffectChain::maximumSlotCount : random.below(5);
}

EffectChain chain(Random &random)
{
    EffectChain chain;
    for (unsigned i = random.below(3); i > 0; --i)
        chain.setEffect(random.below(5), effect(random));
    return chain;
}

unsigned soundCount(EditedScore &e, unsigned track)
{
    const auto node = e.score.track(track);
    return node != nullptr ? static_cast<unsigned>(node->sounds().size()) : 0;
}

/// A sound of a track, and now and then one that is not there.
struct SoundPlace {
    unsigned track;
    unsigned index;
};

SoundPlace soundPlace(EditedScore &e)
{
    const unsigned track = e.places.track();
    return {track, e.places.index(soundCount(e, track))};
}

/// The mastering, or a sound of a track.
struct ChainPlace {
    int track;
    int sound;
};

ChainPlace chainPlace(EditedScore &e)
{
    if (e.random.percent(40))
        return {master, e.random.between(-1, 1)};
    const SoundPlace place = soundPlace(e);
    return {static_cast<int>(place.track),
            e.random.percent(20) ? -1 : static_cast<int>(place.index)};
}

EffectChain chainAt(EditedScore &e, const ChainPlace &place)
{
    if (place.track == master)
        return e.score.masterTrack()->mastering().effectChain();
    const auto track = e.score.track(static_cast<unsigned>(place.track));
    const auto sound = static_cast<unsigned>(place.sound < 0 ? 0 : place.sound);
    return track != nullptr && sound < track->sounds().size()
        ? track->sounds()[sound]->orkaSound().effectChain()
        : EffectChain();
}

float level(Random &random)
{
    return static_cast<float>(random.between(-6, 6)) / 5;
}

bool modifyChannelStripAutomations(EditedScore &e)
{
    const unsigned number = e.places.track();
    DSPParamAutomation volume(Automation::DSPParam_00);
    DSPParamAutomation pan(Automation::DSPParam_01);
    for (DSPParamAutomation *automation : {&volume, &pan}) {
        automation->setIndex(e.places.bar());
        automation->setValue(automation == &volume ? e.random.between(0, 1) : level(e.random));
    }
    std::vector<const Automation *> removed;
    const auto track = e.score.track(number);
    if (track != nullptr && e.random.coin())
        for (const Automation *automation : track->automations().automations(volume.type()))
            removed.push_back(automation);
    return e.score.modifyChannelStripAutomations(number, removed, {&volume, &pan});
}

/// The music of one bar goes to another place, as far as automations tell.
bool moveAutomations(EditedScore &e)
{
    std::vector<AutomationChanges> changes;
    std::vector<std::unique_ptr<Automation>> moved;
    const unsigned from = e.places.bar();
    const unsigned to = e.places.bar();
    const auto move = [&](int track, const AutomationContainer &container) {
        AutomationChanges change;
        change.track = track;
        for (unsigned id = 1; id < Automation::automationTypeCount; ++id)
            for (const Automation *automation :
                 container.automations(Automation::idType(id), from, from)) {
                moved.push_back(automation->cloneAutomation());
                moved.back()->setIndex(to);
                change.removed.push_back(automation);
                change.inserted.push_back(moved.back().get());
            }
        changes.push_back(change);
    };
    move(master, *e.score.masterTrack());
    for (const auto &track : e.score.tracks())
        move(static_cast<int>(track->index()), track->automations());
    return e.score.modifyAutomations(changes);
}

/// Sounds that automations share with the list, as an application inserts them.
bool switchToSound(EditedScore &e)
{
    const SoundPlace place = soundPlace(e);
    const auto track = e.score.track(place.track);
    if (track == nullptr || place.index >= track->sounds().size())
        return false;
    SoundAutomation change(track->sounds()[place.index]);
    change.setIndex(e.places.bar());
    return e.score.modifyTrackAutomations(place.track, {}, {&change});
}

const std::vector<RandomOperation> operations = {
    {"addTrackSound", 4,
     [](EditedScore &e) {
         const unsigned track = e.places.track();
         return soundCount(e, track) < 5 && e.score.addTrackSound(track, sound(e.random));
     }},
    {"removeTrackSound", 2,
     [](EditedScore &e) {
         const SoundPlace place = soundPlace(e);
         return e.score.removeTrackSound(place.track, place.index);
     }},
    {"setTrackSound", 2,
     [](EditedScore &e) {
         const SoundPlace place = soundPlace(e);
         return e.score.setTrackSound(place.track, place.index, sound(e.random));
     }},
    {"swapTrackSounds", 3,
     [](EditedScore &e) {
         const SoundPlace place = soundPlace(e);
         return e.score.swapTrackSounds(place.track, place.index, e.random.below(4));
     }},
    {"setForcedSoundIndex", 2,
     [](EditedScore &e) {
         const SoundPlace place = soundPlace(e);
         return e.score.setForcedSoundIndex(
             place.track, e.random.percent(30) ? -1 : static_cast<int>(place.index));
     }},
    {"switchToSound", 2, switchToSound},
    {"setEffect", 3,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.setEffect(place.track, place.sound, slot(e.random), effect(e.random));
     }},
    {"setEffectBypass", 3,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.setEffectBypass(place.track, place.sound, slot(e.random), e.random.coin());
     }},
    {"setEffectParameters", 3,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         const unsigned at = slot(e.random);
         const unsigned count = chainAt(e, place).effect(at).parameterCount();
         return e.score.setEffectParameters(place.track, place.sound, at,
                                            std::vector<float>(count, level(e.random)));
     }},
    {"setEffectChain", 2,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.setEffectChain(place.track, place.sound, chain(e.random));
     }},
    {"clearEffectChain", 1,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.clearEffectChain(place.track, place.sound);
     }},
    {"deleteEffect", 2,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.deleteEffect(place.track, place.sound, slot(e.random));
     }},
    {"swapEffects", 2,
     [](EditedScore &e) {
         const ChainPlace place = chainPlace(e);
         return e.score.swapEffects(place.track, place.sound, slot(e.random), slot(e.random));
     }},
    {"removeMasterReverb", 1, [](EditedScore &e) { return e.score.removeMasterReverb(); }},
    {"setChannelStripParameter", 2,
     [](EditedScore &e) {
         return e.score.setChannelStripParameter(
             e.random.percent(30) ? master : static_cast<int>(e.places.track()),
             static_cast<ChannelStripParameter>(e.random.below(2)), level(e.random));
     }},
    {"setMasterTrackVolumePan", 1,
     [](EditedScore &e) {
         return e.score.setMasterTrackVolumePan(
             {static_cast<float>(e.random.coin()), static_cast<float>(e.random.between(-1, 1))});
     }},
    {"modifyChannelStripAutomations", 2, modifyChannelStripAutomations},
    {"modifyMasteringAutomations", 1,
     [](EditedScore &e) {
         DSPParamAutomation knob(Automation::DSPParam_07);
         knob.setIndex(e.places.bar());
         knob.setValue(level(e.random));
         return e.score.modifyMasteringAutomations({}, {&knob});
     }},
    {"modifyAutomations", 2, moveAutomations},
    {"moveTrack", 3,
     [](EditedScore &e) { return e.score.moveTrack(e.places.track(), e.places.track()); }},
    {"setTrackColor", 1,
     [](EditedScore &e) {
         return e.score.setTrackColor(e.places.track(), e.random.below(0x1010101));
     }},
    {"setStaffCount", 1,
     [](EditedScore &e) { return e.score.setStaffCount(e.places.track(), e.random.below(4)); }},
    {"setTrackMidiConnection", 1,
     [](EditedScore &e) {
         const MidiConnection connection{static_cast<std::uint8_t>(e.random.below(17)),
                                         static_cast<std::uint8_t>(e.random.below(16)), 1};
         return e.score.setTrackMidiConnection(
             e.places.track(), e.random.percent(80) ? std::optional(connection) : std::nullopt);
     }},
    {"setOneChannelPerString", 1,
     [](EditedScore &e) {
         return e.score.setOneChannelPerString(e.places.track(), e.random.coin());
     }},
    {"setPlayingStyle", 1,
     [](EditedScore &e) {
         return e.score.setPlayingStyle(e.places.track(),
                                        static_cast<PlayingStyle>(e.random.below(9)));
     }},
    {"setTrackPlayback", 1,
     [](EditedScore &e) {
         return e.score.setTrackPlayback(e.places.track(),
                                         static_cast<TrackPlayback>(e.random.below(4)));
     }},
    {"setTrackNotations", 1,
     [](EditedScore &e) {
         const TrackNotations chosen = {e.random.coin(), e.random.coin(), e.random.coin()};
         return e.score.setTrackNotations(
             e.places.track(), e.random.percent(80) ? std::optional(chosen) : std::nullopt);
     }},
    {"setAutoAccentuation", 1,
     [](EditedScore &e) { return e.score.setAutoAccentuation(e.places.track(), e.random.coin()); }},
    {"setAutoBrush", 1,
     [](EditedScore &e) { return e.score.setAutoBrush(e.places.track(), e.random.coin()); }},
    {"setLetRingThroughout", 1,
     [](EditedScore &e) {
         return e.score.setLetRingThroughout(e.places.track(), e.random.coin());
     }},
    {"setPalmMute", 2,
     [](EditedScore &e) { return e.score.setPalmMute(e.places.track(), level(e.random)); }},
};

} // namespace

const std::vector<RandomOperation> &randomSoundOperations()
{
    return operations;
}
