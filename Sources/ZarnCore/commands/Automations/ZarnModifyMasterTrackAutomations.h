// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

namespace zarn::cmd {

/// Removes and inserts automations of the tempo and the parameters of the mastering.
class ZARNCORE_EXPORT ModifyMasterTrackAutomations final : public AutomationsCommand {
public:
    ModifyMasterTrackAutomations();
    ~ModifyMasterTrackAutomations() override;

    /// `removed` names automations by type and place. See `AutomationsCommand::prepare` for what is
    /// refused.
    bool init(Score *score, const Automations &removed, const Automations &inserted);
};

} // namespace zarn::cmd
