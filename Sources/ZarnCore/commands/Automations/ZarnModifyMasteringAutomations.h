// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

namespace zarn::cmd {

/// Removes and inserts automations of the parameters of the mastering: volume, panning, effects.
class ZARNCORE_EXPORT ModifyMasteringAutomations final : public AutomationsCommand {
public:
    ModifyMasteringAutomations();
    ~ModifyMasteringAutomations() override;

    /// `removed` names automations by type and place. False for tempos and sounds; see
    /// `AutomationsCommand::prepare` for what else is refused.
    bool init(Score *score, const Automations &removed, const Automations &inserted);

private:
    bool canHold(int track, Automation::Type type) const noexcept override;
};

} // namespace zarn::cmd
