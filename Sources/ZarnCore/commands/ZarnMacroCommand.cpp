// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnMacroCommand.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <exception>

namespace zarn {

MacroCommand::MacroCommand(Score *score) : _score(score) { }

MacroCommand::~MacroCommand()
{
    for (auto &command : _commands)
        command.reset();
}

void MacroCommand::pushCommand(Command *command)
{
    std::unique_ptr<Command> owned(command);
    ZARN_ASSERT_IN("zarn::MacroCommand::pushCommand", command != NULL);
    _commands.push_back(std::move(owned));
}

std::uint32_t MacroCommand::commandCount() const noexcept
{
    return static_cast<std::uint32_t>(_commands.size());
}

void MacroCommand::redo()
{
    go(Way::Forwards);
}

void MacroCommand::undo()
{
    go(Way::Backwards);
}

void MacroCommand::go(Way way)
{
    begin();
    try {
        runAll(way);
    } catch (...) {
        tellEndOfFailure();
        throw;
    }
    tellEnd(way);
}

void MacroCommand::begin()
{
    try {
        if (_score != nullptr)
            _score->notify(this, evt::BeginMacro());
    } catch (...) {
        tellEndOfFailure();
        throw;
    }
}

void MacroCommand::run(std::unique_ptr<Command> command)
{
    _commands.push_back(std::move(command));
    try {
        _commands.back()->redo();
    } catch (...) {
        _commands.pop_back();
        throw;
    }
}

void MacroCommand::end()
{
    tellEnd(Way::Forwards);
}

void MacroCommand::takeBack() noexcept
{
    revert(Way::Forwards, _commands.size());
    tellEndOfFailure();
}

void MacroCommand::tellEnd(Way way)
{
    try {
        if (_score != nullptr)
            _score->notify(this, evt::EndMacro());
    } catch (...) {
        revert(way, _commands.size());
        throw;
    }
}

/// The listeners that saw the beginning must see the end.
void MacroCommand::tellEndOfFailure() noexcept
{
    const Score::TakingBack unstoppable(_score);
    if (_score != nullptr)
        _score->notify(this, evt::EndMacro());
}

void MacroCommand::runAll(Way way)
{
    std::size_t done = 0;
    try {
        for (; done < _commands.size(); ++done)
            step(way, done);
    } catch (...) {
        revert(way, done);
        throw;
    }
}

/// Runs the command that comes at this place when going this way.
void MacroCommand::step(Way way, std::size_t place)
{
    if (way == Way::Forwards)
        _commands[place]->redo();
    else
        _commands[_commands.size() - 1 - place]->undo();
}

/// Takes back the first `count` steps of a run, last one first.
void MacroCommand::revert(Way way, std::size_t count) noexcept
{
    const Score::TakingBack unstoppable(_score);
    const Way back = way == Way::Forwards ? Way::Backwards : Way::Forwards;
    for (std::size_t left = count; left > 0; --left) {
        try {
            step(back, _commands.size() - left);
        } catch (const std::exception &error) {
            qCCritical(log::commands) << "Cannot revert a part of a macro:" << error.what();
        } catch (...) {
            qCCritical(log::commands) << "Cannot revert a part of a macro";
        }
    }
}

} // namespace zarn
