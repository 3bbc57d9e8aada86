// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {
class AutomationContainer;
}

namespace zarn::cmd {

/// Sets whether playback leaves out the automations of one type of a track; they stay as they are.
/// Sends `TrackAutomationBypassChanged`.
class ZARNCORE_EXPORT ModifyTrackAutomationBypass final : public ScoreCommand {
public:
    ModifyTrackAutomationBypass();
    ~ModifyTrackAutomationBypass() override;

    /// False for a track that is not there, and for an unknown type.
    bool init(Score *score, unsigned track, Automation::Type type, bool isBypassed);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    AutomationContainer *container() const;
    void announce(bool isBypassed);

    unsigned _track = 0;
    Automation::Type _type = Automation::Unknown;
    bool _isBypassed = false;
    bool _before = false;
};

} // namespace zarn::cmd
