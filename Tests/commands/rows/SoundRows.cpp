// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>

#include <gtest/gtest.h>

#include <limits>

using namespace rich;

namespace {

constexpr int master = -1;
constexpr unsigned reverb = Mastering::reverbSlot;

DSPParamAutomation knob(Automation::Type type, unsigned bar, float value)
{
    DSPParamAutomation automation(type);
    automation.setIndex(bar);
    automation.setValue(value);
    return automation;
}

Effect chorus()
{
    return Effect("chorus", "Chorus", {0.25F, 0.5F});
}

EffectChain reverbAndChorus()
{
    EffectChain chain = Mastering::makeDefault().effectChain();
    chain.setEffect(5, chorus());
    return chain;
}

/// The track switches to the piano, its first sound, in bar 1.
std::vector<CommandRow> rowsOfSounds()
{
    return {
        {"AddTrackSound",
         [](SmallScore &s) { return s.score.addTrackSound(0, Sound("Nylon", MIDISound())); },
         "RequestAddSound(0,0) ", "RequestRemoveSound(0,0) "},
        {"RemoveTrackSound", [](SmallScore &s) { return s.score.removeTrackSound(1, 0); },
         "RequestRemoveSound(1,0) RequestForcedSoundIndexChange(1,1,0) ",
         "RequestInsertSound(1,0) RequestForcedSoundIndexChange(1,0,1) "},
        {"RemoveForcedTrackSound", [](SmallScore &s) { return s.score.removeTrackSound(1, 1); },
         "RequestRemoveSound(1,1) RequestForcedSoundIndexChange(1,1,-1) ",
         "RequestInsertSound(1,1) RequestForcedSoundIndexChange(1,-1,1) "},
        {"SetTrackSound",
         [](SmallScore &s) { return s.score.setTrackSound(1, 0, Sound("Spinet", MIDISound(6))); },
         "RequestSoundChange(1,0) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged ",
         nullptr},
        {"SetTrackSoundWithoutAutomations",
         [](SmallScore &s) { return s.score.setTrackSound(1, 1, Sound("Spinet", MIDISound(6))); },
         "RequestSoundChange(1,1) ", nullptr},
        {"SwapTrackSounds", [](SmallScore &s) { return s.score.swapTrackSounds(1, 1, 0); },
         "RequestSwapSounds(1,1,0) RequestForcedSoundIndexChange(1,1,0) ",
         "RequestSwapSounds(1,1,0) RequestForcedSoundIndexChange(1,0,1) "},
        {"SetForcedSoundIndex", [](SmallScore &s) { return s.score.setForcedSoundIndex(1, -1); },
         "RequestForcedSoundIndexChange(1,1,-1) ", "RequestForcedSoundIndexChange(1,-1,1) "},
        {"SetChannelStripParameter",
         [](SmallScore &s) {
             return s.score.setChannelStripParameter(1, ChannelStripParameter::Pan, -0.5F);
         },
         "RequestTrackChannelStripChange(1) ", nullptr},
        {"SetChannelStripParameterOfMaster",
         [](SmallScore &s) {
             return s.score.setChannelStripParameter(master, ChannelStripParameter::Pan, 1);
         },
         "RequestMasterTrackChannelStripParameterChange(1) ", nullptr, true},
        {"SetMasterTrackVolumePan",
         [](SmallScore &s) {
             return s.score.setMasterTrackVolumePan({0.25F, -1});
         },
         "RequestMasterTrackChannelStripChange ", nullptr, true},
    };
}

std::vector<CommandRow> rowsOfEffects()
{
    return {
        {"SetEffect", [](SmallScore &s) { return s.score.setEffect(1, 0, 1, chorus()); },
         "TrackSoundEffectsChanged(1,0) RequestEffectChange(1,1) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged ",
         nullptr},
        {"SetEffectOfMaster",
         [](SmallScore &s) { return s.score.setEffect(master, 7, reverb, chorus()); },
         "RequestEffectChange(-1,3) MasteringReverbChanged ", nullptr, true},
        {"SetEffectBypassOfForcedSound",
         [](SmallScore &s) { return s.score.setEffectBypass(1, -1, 0, true); },
         "TrackSoundEffectsChanged(1,1) RequestEffectBypassChange(1,0,1) ",
         "TrackSoundEffectsChanged(1,1) RequestEffectBypassChange(1,0,0) "},
        {"SetEffectBypassOfMaster",
         [](SmallScore &s) { return s.score.setEffectBypass(master, 0, reverb, true); },
         "RequestEffectBypassChange(-1,3,1) MasteringReverbChanged ",
         "RequestEffectBypassChange(-1,3,0) MasteringReverbChanged "},
        {"SetEffectParameters",
         [](SmallScore &s) {
             return s.score.setEffectParameters(master, 0, reverb, {0.1F, 0.2F});
         },
         "RequestEffectParametersChange(-1,3) MasteringReverbChanged ", nullptr},
        {"SetEffectParametersOfSound",
         [](SmallScore &s) { return s.score.setEffectParameters(1, 1, 0, {0.75F}); },
         "TrackSoundEffectsChanged(1,1) RequestEffectParametersChange(1,0) ", nullptr},
        {"SetEffectChain",
         [](SmallScore &s) { return s.score.setEffectChain(1, 0, reverbAndChorus()); },
         "TrackSoundEffectsChanged(1,0) RequestEffectChainChange(1) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged ",
         nullptr},
        {"SetEffectChainOfMaster",
         [](SmallScore &s) { return s.score.setEffectChain(master, 0, reverbAndChorus()); },
         "RequestEffectChainChange(-1) ", nullptr, true},
        {"ClearEffectChain", [](SmallScore &s) { return s.score.clearEffectChain(1, 0); },
         "TrackSoundEffectsChanged(1,0) RequestEffectChainClear(1) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged ",
         "TrackSoundEffectsChanged(1,0) RequestEffectChainChange(1) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged "},
        {"ClearEffectChainOfMaster",
         [](SmallScore &s) { return s.score.clearEffectChain(master, 0); },
         "RequestEffectChainClear(-1) MasteringReverbChanged ",
         "RequestEffectChainChange(-1) MasteringReverbChanged "},
        {"DeleteEffect", [](SmallScore &s) { return s.score.deleteEffect(1, 1, 0); },
         "TrackSoundEffectsChanged(1,1) RequestEffectDelete(1,0) ",
         "TrackSoundEffectsChanged(1,1) RequestEffectChange(1,0) "},
        {"RemoveMasterReverb", [](SmallScore &s) { return s.score.removeMasterReverb(); },
         "RequestEffectDelete(-1,3) MasteringReverbChanged ",
         "RequestEffectChange(-1,3) MasteringReverbChanged "},
        {"SwapEffects", [](SmallScore &s) { return s.score.swapEffects(1, 0, 0, 2); },
         "TrackSoundEffectsChanged(1,0) RequestEffectsSwap(1,0,2) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) AutomationChanged ",
         nullptr},
        {"SwapEffectsOfMaster",
         [](SmallScore &s) { return s.score.swapEffects(master, 0, reverb, 7); },
         "RequestEffectsSwap(-1,3,7) MasteringReverbChanged ", nullptr},
    };
}

std::vector<CommandRow> rowsOfAutomations()
{
    return {
        {"ModifyAutomations",
         [](SmallScore &s) {
             const auto first = tempo(0, 90);
             const auto sound = soundChange(2);
             const auto volume = knob(Automation::DSPParam_00, 4, 0.5F);
             return s.score.modifyAutomations(
                 {{1, {}, {&sound}}, {master, {}, {&first}}, {0, {}, {&volume}}});
         },
         "MasterTrackAutomationChanged(Tempo,0,0) ChannelStripAutomationChanged(0,DSPParam_00,4,4) "
         "TrackAutomationChanged(0,DSPParam_00,4,4) TrackAutomationChanged(1,Sound,2,2) "
         "SoundAutomationChanged(1,2,2) GlobalTempoChanged(100,90) AutomationChanged ",
         "MasterTrackAutomationChanged(Tempo,0,0) ChannelStripAutomationChanged(0,DSPParam_00,4,4) "
         "TrackAutomationChanged(0,DSPParam_00,4,4) TrackAutomationChanged(1,Sound,2,2) "
         "SoundAutomationChanged(1,2,2) GlobalTempoChanged(90,100) AutomationChanged "},
        {"ModifyChannelStripAutomations",
         [](SmallScore &s) {
             const auto volume = knob(Automation::DSPParam_00, 1, 0);
             const auto louder = knob(Automation::DSPParam_00, 3, 1);
             const auto pan = knob(Automation::DSPParam_01, 2, -1);
             return s.score.modifyChannelStripAutomations(0, {}, {&volume, &pan, &louder});
         },
         "ChannelStripAutomationChanged(0,DSPParam_00,1,3) "
         "TrackAutomationChanged(0,DSPParam_00,1,3) "
         "ChannelStripAutomationChanged(0,DSPParam_01,2,2) "
         "TrackAutomationChanged(0,DSPParam_01,2,2) AutomationChanged ",
         nullptr},
        {"ModifyMasteringAutomations",
         [](SmallScore &s) {
             const auto mix = knob(Automation::DSPParam_02, 4, 0.5F);
             return s.score.modifyMasteringAutomations({}, {&mix});
         },
         "MasteringAutomationChanged(DSPParam_02,4,4) "
         "MasterTrackAutomationChanged(DSPParam_02,4,4) AutomationChanged ",
         nullptr},
    };
}

} // namespace

std::vector<CommandRow> soundRows()
{
    std::vector<CommandRow> all = rowsOfSounds();
    for (const auto &rows : {rowsOfEffects(), rowsOfAutomations()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

void expectSoundCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    const float infinite = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const Effect wild("wild", "Wild", {0, infinite});
    EffectChain wildChain;
    wildChain.setEffect(1, wild);
    const std::shared_ptr<const Sound> none;
    const auto volume = knob(Automation::DSPParam_00, 1, 0.5F);
    const auto shouting = knob(Automation::DSPParam_00, 1, 1.5F);
    const auto effect = knob(Automation::DSPParam_02, 1, 0.5F);
    const auto beat = tempo(0, 90);
    const auto sound = soundChange(1);
    const auto late = soundChange(6);
    constexpr auto wildTrack = std::numeric_limits<unsigned>::max(); // -1 is the master track
    using Strip = ChannelStripParameter;
    expectAllRefused(
        score,
        {
            [&] { return score.addTrackSound(0, none); },
            [&] { return score.addTrackSound(0, Sound("Odd", MIDISound(128))); },
            [&] { return score.setTrackSound(1, 0, Sound("Odd", MIDISound(-1))); },
            [&] { return score.addTrackSound(2, Sound()); },
            [&] { return score.removeTrackSound(1, 2); },
            [&] { return score.setTrackSound(1, 0, none); },
            [&] { return score.setTrackSound(1, 2, Sound()); },
            [&] { return score.swapTrackSounds(1, 1, 1); },
            [&] { return score.swapTrackSounds(1, 0, 2); },
            [&] { return score.setForcedSoundIndex(1, 2); },
            [&] { return score.setForcedSoundIndex(1, -2); },
            [&] { return score.setForcedSoundIndex(0, 0); },
            [&] { return score.setEffect(master, 0, 1, Effect()); },
            [&] { return score.setEffect(master, 0, 1, wild); },
            [&] { return score.setEffect(master, 0, 32, chorus()); },
            [&] { return score.setEffect(1, 2, 1, chorus()); },
            [&] { return score.setEffect(1, -2, 1, chorus()); },
            [&] { return score.setEffect(0, -1, 1, chorus()); },
            [&] { return score.setEffect(-2, 0, 1, chorus()); },
            [&] { return score.setEffectBypass(1, 0, 1, true); },
            [&] { return score.setEffectBypass(master, 0, 32, true); },
            [&] { return score.setEffectParameters(master, 0, reverb, {1}); },
            [&] {
                return score.setEffectParameters(master, 0, reverb, {1, nan});
            },
            [&] { return score.setEffectParameters(master, 0, 2, {}); },
            [&] { return score.setEffectChain(1, 0, wildChain); },
            [&] { return score.setEffectChain(0, 0, EffectChain()); },
            [&] { return score.deleteEffect(master, 0, 2); },
            [&] { return score.deleteEffect(1, 0, 1); },
            [&] { return score.swapEffects(1, 0, 0, 0); },
            [&] { return score.swapEffects(1, 0, 1, 3); },
            [&] { return score.swapEffects(1, 0, 0, 32); },
            [&] { return score.setChannelStripParameter(0, Strip::Volume, 1.25F); },
            [&] { return score.setChannelStripParameter(0, Strip::Volume, nan); },
            [&] { return score.setChannelStripParameter(0, Strip::Pan, -1.5F); },
            [&] { return score.setChannelStripParameter(0, static_cast<Strip>(2), 0); },
            [&] { return score.setChannelStripParameter(-2, Strip::Pan, 0); },
            [&] { return score.setChannelStripParameter(2, Strip::Pan, 0); },
            [&] { return score.modifyAutomations({}); },
            [&] {
                return score.modifyAutomations({{0, {}, {}}, {master, {}, {}}});
            },
            [&] {
                return score.modifyAutomations({{master, {}, {&beat}}, {1, {}, {&late}}});
            },
            [&] {
                return score.modifyAutomations({{master, {}, {&beat}}, {2, {}, {&sound}}});
            },
            [&] {
                return score.modifyAutomations({{0, {}, {&sound}}, {0, {}, {&sound}}});
            },
            [&] {
                return score.modifyAutomations({{0, {}, {&sound, &beat}}});
            },
            [&] { return score.modifyTrackAutomations(wildTrack, {}, {&effect}); },
            [&] { return score.modifyChannelStripAutomations(0, {}, {&effect}); },
            [&] { return score.modifyChannelStripAutomations(0, {}, {&shouting}); },
            [&] { return score.modifyChannelStripAutomations(0, {&volume}, {}); },
            [&] { return score.modifyChannelStripAutomations(wildTrack, {}, {&volume}); },
            [&] { return score.modifyMasteringAutomations({}, {&beat}); },
            [&] { return score.modifyMasteringAutomations({}, {&sound}); },
        });
    EXPECT_TRUE(score.clearEffectChain(-1, 0));
    expectAllRefused(score,
                     {
                         [&] { return score.clearEffectChain(-1, 0); },
                         [&] { return score.removeMasterReverb(); },
                     });
    score.commandStack().undo();
}
