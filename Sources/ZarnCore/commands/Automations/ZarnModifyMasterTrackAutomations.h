// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>

namespace zarn::cmd {

/// Removes and inserts automations of the tempo and the master effects. Sends
/// `MasterTrackAutomationChanged` for each type, `GlobalTempoChanged` when the score starts at
/// another tempo, then `AutomationChanged`.
class ZARNCORE_EXPORT ModifyMasterTrackAutomations final : public ModifyAutomations {
public:
    ModifyMasterTrackAutomations();
    ~ModifyMasterTrackAutomations() override;

    /// `removed` names automations by type and place. See `ModifyAutomations::prepare` for what is
    /// refused.
    bool init(Score *score, const Automations &removed, const Automations &inserted);

private:
    AutomationContainer *container() const override;
    bool canHold(Automation::Type type) const noexcept override;
    void apply() override;
    void announceApplied() override;
    void announceReverted() override;
    void announce(double tempoBefore, double tempoAfter);

    double _tempoBefore = 0; ///< at the start of the score, in quarters per minute
    double _tempoAfter = 0;
};

} // namespace zarn::cmd
