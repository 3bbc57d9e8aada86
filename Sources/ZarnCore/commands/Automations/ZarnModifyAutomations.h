// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <memory>
#include <vector>

namespace zarn {

class AutomationContainer;

/// Base of commands that take automations out of a container and put others in. One that is put in
/// replaces what stands at its place; one that would change nothing there is left out, as
/// `AutomationContainer::insertAutomation` says.
class ZARNCORE_EXPORT ModifyAutomations : public ScoreCommand {
public:
    /// Automations to be looked at during a call; not owned, wherever they come from.
    using Automations = std::vector<const Automation *>;

    ~ModifyAutomations() override;

protected:
    using ScoreCommand::ScoreCommand;

    /// Records the arguments and remembers places of the first and copies of the second. False for
    /// no change, for a type that does not belong there, for an automation to be removed that does
    /// not exist, for one to be put in behind the last bar or before the start of its bar, and for
    /// two at one place.
    bool prepare(Score *score, const Automations &removed, const Automations &inserted);

    /// Null when it is not there (any more).
    virtual AutomationContainer *container() const = 0;
    virtual bool canHold(Automation::Type type) const noexcept = 0;

    static bool isEffectParameter(Automation::Type type) noexcept;

    void apply() override;

    /// Sends the event of each type that the command deals with, with the bars where it does.
    void announceBars(int track);

private:
    struct Place {
        Automation::Type type = Automation::Unknown;
        std::uint32_t index = 0;
        float position = 0;
    };

    /// What is put in: its model, and the automation itself while it is out of the container.
    struct Insertion {
        std::unique_ptr<Automation> model;
        std::unique_ptr<Automation> automation;
        bool isIn = false;
    };

    void revert() override;
    void recordArgs(const Automations &removed, const Automations &inserted);
    bool areApart() const;
    bool isPossible() const;
    bool takeAt(const Place &place);
    static Place placeOf(const Automation &automation) noexcept;

    std::vector<Place> _removals;
    std::vector<Insertion> _insertions;
    std::vector<std::unique_ptr<Automation>> _taken; ///< out of the container, in order
};

} // namespace zarn
