// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <functional>
#include <memory>
#include <vector>

namespace zarn {

/// Base of commands that are done by others, one after the other, as one step under one name. Each
/// of the others sends its own events when it has done its part, so that a listener is right all
/// along. When one of them throws, those before it are taken back.
class ZARNCORE_EXPORT CompoundCommand : public ScoreCommand {
public:
    ~CompoundCommand() override;

protected:
    explicit CompoundCommand(const QString &name);

    /// Behind the steps that are there.
    void addStep(std::unique_ptr<Command> step);

    /// One that is made when those in front of it have run; null when it cannot be, which raises.
    void addStep(std::function<std::unique_ptr<Command>()> make);

private:
    struct Step {
        std::unique_ptr<Command> command;
        std::function<std::unique_ptr<Command>()> make;
    };
    using Steps = std::vector<Step>;
    enum class Way { Forwards, Backwards };

    /// Adds the steps, by the score as it is before the first of them; called when the command runs
    /// for the first time. Raises when its place is not there.
    virtual void plan() = 0;

    void apply() final;
    void revert() final;
    void announceApplied() final { }
    void announceReverted() final { }
    void run(Way way);
    void step(Way way, std::size_t place);

    Steps _steps;
};

} // namespace zarn
