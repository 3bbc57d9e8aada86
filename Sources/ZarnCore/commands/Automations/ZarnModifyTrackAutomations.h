// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>

namespace zarn::cmd {

/// Removes and inserts automations of a track's sounds and effects. Sends `TrackAutomationChanged`
/// for each type, `SoundAutomationChanged` for sounds, then `AutomationChanged`.
class ZARNCORE_EXPORT ModifyTrackAutomations final : public ModifyAutomations {
public:
    ModifyTrackAutomations();
    ~ModifyTrackAutomations() override;

    /// `removed` names automations by type and place. False for a track that is not there; see
    /// `ModifyAutomations::prepare` for what else is refused.
    bool init(Score *score, unsigned track, const Automations &removed,
              const Automations &inserted);

private:
    AutomationContainer *container() const override;
    bool canHold(Automation::Type type) const noexcept override;
    void announceApplied() override;
    void announceReverted() override;

    unsigned _track = 0;
};

} // namespace zarn::cmd
