// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScorePlaybackOperations.h>

#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyChannelStripAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasteringAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>
#include <ZarnCore/commands/Execute.h>

namespace zarn {

bool ScorePlaybackOperations::modifyAutomations(const std::vector<AutomationChanges> &changes)
{
    return execute<cmd::ModifyAutomations>(*this, changes);
}

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

bool ScorePlaybackOperations::modifyChannelStripAutomations(
    unsigned track, const std::vector<const Automation *> &removed,
    const std::vector<const Automation *> &inserted)
{
    return execute<cmd::ModifyChannelStripAutomations>(*this, track, removed, inserted);
}

bool ScorePlaybackOperations::modifyMasteringAutomations(
    const std::vector<const Automation *> &removed, const std::vector<const Automation *> &inserted)
{
    return execute<cmd::ModifyMasteringAutomations>(*this, removed, inserted);
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

} // namespace zarn
