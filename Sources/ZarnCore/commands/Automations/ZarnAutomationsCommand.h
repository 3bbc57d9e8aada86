// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Automations/ZarnAutomationEdit.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/automations/ZarnAutomationChanges.h>

#include <map>
#include <vector>

namespace zarn {

class AutomationContainer;

/// Base of commands that take automations out of tracks and put others in, all of them or none.
///
/// Sends, for each track and type, `TrackAutomationChanged` and what goes with the type, or the
/// same for the master track; `GlobalTempoChanged` when the score starts at another tempo; and
/// `AutomationChanged` at the end.
class ZARNCORE_EXPORT AutomationsCommand : public ScoreCommand {
public:
    /// Automations to be looked at during a call; not owned, wherever they come from.
    using Automations = std::vector<const Automation *>;

    ~AutomationsCommand() override;

protected:
    using ScoreCommand::ScoreCommand;

    /// Records the arguments and remembers what is to go and to come. False for no change, for a
    /// type that does not belong there, for an automation to be removed that does not exist, for
    /// one to be put in behind the last bar or before the start of its bar, or with numbers that
    /// cannot be played (a tempo of 0), for two at one place, and for a track that is not there.
    bool prepare(Score *score, const std::vector<AutomationChanges> &changes);

    /// The number of a track as changes have it; none is mistaken for the master track.
    static int trackNumber(unsigned track) noexcept;

private:
    /// Whether automations of a type belong to a track: tempos to the master track, sounds to the
    /// others, parameters to both.
    virtual bool canHold(int track, Automation::Type type) const noexcept;

    /// Whether an automation may come with its value, which is a number.
    virtual bool canHaveValue(const Automation &automation) const noexcept;

    /// Null when it is not there (any more).
    AutomationContainer *container(int track) const;

    void recordArgs(const std::vector<AutomationChanges> &changes);
    bool canRemove(int track, const Automation *automation) const noexcept;
    bool canInsert(int track, const Automation *automation) const noexcept;
    bool isPossible() const;
    void announce(double tempoBefore, double tempoAfter);

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    std::map<int, AutomationEdit> _edits; ///< by track
    double _tempoBefore = 0;              ///< at the start of the score, in quarters per minute
    double _tempoAfter = 0;
};

} // namespace zarn
