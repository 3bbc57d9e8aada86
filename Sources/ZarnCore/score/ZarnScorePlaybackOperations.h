// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <vector>

namespace zarn {

/// What can be done to the automations and effects of a score. Automations to be removed are named
/// by type and place, those to be inserted are copied and replace what stands at their place;
/// either list may be empty. The master track holds tempos and effect parameters, a track sounds
/// and effect parameters. Each answers whether it was done: what cannot be done is logged and
/// changes nothing.
class ZARNCORE_EXPORT ScorePlaybackOperations {
public:
    bool modifyMasterTrackAutomations(const std::vector<const Automation *> &removed,
                                      const std::vector<const Automation *> &inserted);
    bool modifyTrackAutomations(unsigned track, const std::vector<const Automation *> &removed,
                                const std::vector<const Automation *> &inserted);

    /// Makes playback leave out a type of automations, or heed it again.
    bool modifyMasterTrackAutomationBypass(Automation::Type type, bool isBypassed);
    bool modifyTrackAutomationBypass(unsigned track, Automation::Type type, bool isBypassed);

    /// Removes the reverb that a new score has in its mastering.
    bool removeMasterReverb();

protected:
    ScorePlaybackOperations() = default;
    ~ScorePlaybackOperations() = default;
};

} // namespace zarn
