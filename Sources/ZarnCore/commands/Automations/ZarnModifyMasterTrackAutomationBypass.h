// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {
class AutomationContainer;
}

namespace zarn::cmd {

/// Sets whether playback leaves out the automations of one type of the master track; they stay as
/// they are. Sends `MasterTrackAutomationBypassChanged`.
class ZARNCORE_EXPORT ModifyMasterTrackAutomationBypass final : public ScoreCommand {
public:
    ModifyMasterTrackAutomationBypass();
    ~ModifyMasterTrackAutomationBypass() override;

    /// False for an unknown type.
    bool init(Score *score, Automation::Type type, bool isBypassed);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    AutomationContainer *container() const;
    void announce(bool isBypassed);

    Automation::Type _type = Automation::Unknown;
    bool _isBypassed = false;
    bool _before = false;
};

} // namespace zarn::cmd
