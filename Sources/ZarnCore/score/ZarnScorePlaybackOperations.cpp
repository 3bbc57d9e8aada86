// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScorePlaybackOperations.h>

#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>
#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/MasterTrack/ZarnDeleteEffect.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>

namespace zarn {

bool ScorePlaybackOperations::modifyMasterTrackAutomations(
    const std::vector<const Automation *> &removed, const std::vector<const Automation *> &inserted)
{
    return execute<cmd::ModifyMasterTrackAutomations>(*this, removed, inserted);
}

bool ScorePlaybackOperations::modifyTrackAutomations(
    unsigned track, const std::vector<const Automation *> &removed,
    const std::vector<const Automation *> &inserted)
{
    return execute<cmd::ModifyTrackAutomations>(*this, track, removed, inserted);
}

bool ScorePlaybackOperations::modifyMasterTrackAutomationBypass(Automation::Type type,
                                                                bool isBypassed)
{
    return execute<cmd::ModifyMasterTrackAutomationBypass>(*this, type, isBypassed);
}

bool ScorePlaybackOperations::modifyTrackAutomationBypass(unsigned track, Automation::Type type,
                                                          bool isBypassed)
{
    return execute<cmd::ModifyTrackAutomationBypass>(*this, track, type, isBypassed);
}

bool ScorePlaybackOperations::removeMasterReverb()
{
    return execute<cmd::DeleteEffect>(*this, Mastering::reverbSlot);
}

} // namespace zarn
