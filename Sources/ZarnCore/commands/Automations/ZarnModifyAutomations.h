// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

namespace zarn::cmd {

/// Removes and inserts automations of several tracks at once, the master track among them: what
/// becomes of automations when music is moved or pasted.
class ZARNCORE_EXPORT ModifyAutomations final : public AutomationsCommand {
public:
    ModifyAutomations();
    ~ModifyAutomations() override;

    /// Changes of one track may be spread over several entries; they must not contradict each
    /// other. See `AutomationsCommand::prepare` for what is refused.
    bool init(Score *score, const std::vector<AutomationChanges> &changes);
};

} // namespace zarn::cmd
