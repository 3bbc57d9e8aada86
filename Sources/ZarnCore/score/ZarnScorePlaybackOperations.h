// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>
#include <ZarnCore/instruments/automations/ZarnAutomationChanges.h>

#include <vector>

namespace zarn {

/// What can be done to the automations of a score. Automations to be removed are named by type and
/// place, those to be inserted are copied and replace what stands at their place; either list may
/// be empty. The master track holds tempos and effect parameters, a track sounds and effect
/// parameters; two of the parameters are those of the channel strip (see `channelStripType`). Each
/// answers whether it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScorePlaybackOperations {
public:
    /// Changes the automations of several tracks in one step, all or none.
    bool modifyAutomations(const std::vector<AutomationChanges> &changes);

    bool modifyMasterTrackAutomations(const std::vector<const Automation *> &removed,
                                      const std::vector<const Automation *> &inserted);
    bool modifyTrackAutomations(unsigned track, const std::vector<const Automation *> &removed,
                                const std::vector<const Automation *> &inserted);

    /// Volume and panning of a track over time.
    bool modifyChannelStripAutomations(unsigned track,
                                       const std::vector<const Automation *> &removed,
                                       const std::vector<const Automation *> &inserted);

    /// The parameters of the mastering over time.
    bool modifyMasteringAutomations(const std::vector<const Automation *> &removed,
                                    const std::vector<const Automation *> &inserted);

    /// Makes playback leave out a type of automations, or heed it again.
    bool modifyMasterTrackAutomationBypass(Automation::Type type, bool isBypassed);
    bool modifyTrackAutomationBypass(unsigned track, Automation::Type type, bool isBypassed);

protected:
    ScorePlaybackOperations() = default;
    ~ScorePlaybackOperations() = default;
};

} // namespace zarn
