// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

namespace zarn::cmd {

/// Removes and inserts automations of a track's sounds, its volume and panning, and its effects.
class ZARNCORE_EXPORT ModifyTrackAutomations final : public AutomationsCommand {
public:
    ModifyTrackAutomations();
    ~ModifyTrackAutomations() override;

    /// `removed` names automations by type and place. See `AutomationsCommand::prepare` for what is
    /// refused.
    bool init(Score *score, unsigned track, const Automations &removed,
              const Automations &inserted);
};

} // namespace zarn::cmd
