// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCommand.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zarn {

class Score;

/// Commands that are executed, undone and redone as one; what a `Transaction` leaves, too. Its name
/// is empty, or that of the transaction. Each run is bracketed by the events `BeginMacro` and
/// `EndMacro`, forwards and backwards.
///
/// When a command throws, those that ran before it are reverted (or run again, when undoing),
/// `EndMacro` is sent, and the exception goes on. No listener can stop that: what it throws
/// meanwhile is logged.
class ZARNCORE_EXPORT MacroCommand final : public Command {
public:
    /// The score delivers the events; it is not owned.
    explicit MacroCommand(Score *score);

    /// Destroys the commands, first to last.
    ~MacroCommand() override;

    /// Appends a command and takes it over; it is not executed. Raises for a null command.
    void pushCommand(Command *command);

    std::uint32_t commandCount() const noexcept;

    void redo() override;
    void undo() override;

    // Running the commands one by one, as they come: a transaction.

    /// Tells that commands follow; when a listener throws, it tells that they are over.
    void begin();

    /// Takes over a command and runs it behind those that are here; one that throws does not stay.
    void run(std::unique_ptr<Command> command);

    /// Tells that the commands have run; when a listener throws, they are reverted.
    void end();

    /// Reverts the commands and tells that they are over.
    void takeBack() noexcept;

private:
    using Commands = std::vector<std::unique_ptr<Command>>;
    enum class Way { Forwards, Backwards };

    void go(Way way);
    void runAll(Way way);
    void step(Way way, std::size_t place);
    void revert(Way way, std::size_t count) noexcept;
    void tellEnd(Way way);
    void tellEndOfFailure() noexcept;

    Commands _commands;
    Score *_score;
};

} // namespace zarn
