// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

namespace zarn::cmd {

/// Removes and inserts automations of a track's volume and panning, which are two of its parameters
/// (see `channelStripType`).
class ZARNCORE_EXPORT ModifyChannelStripAutomations final : public AutomationsCommand {
public:
    ModifyChannelStripAutomations();
    ~ModifyChannelStripAutomations() override;

    /// `removed` names automations by type and place. False for other types and for values that the
    /// parameter cannot have; see `AutomationsCommand::prepare` for what else is refused.
    bool init(Score *score, unsigned track, const Automations &removed,
              const Automations &inserted);

private:
    bool canHold(int track, Automation::Type type) const noexcept override;
    bool canHaveValue(const Automation &automation) const noexcept override;
};

} // namespace zarn::cmd
