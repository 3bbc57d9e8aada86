// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCommand.h>
#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/score/ZarnScore.h>

#include <memory>
#include <utility>

namespace zarn {

/// Logs the command that is about to be initialised.
void logExecute(const Command &command);

/// Logs that the command's `init` refused.
void logCannotExecute(const Command &command);

/// What every operation of a score does: builds the command `C`, initialises it with the arguments
/// and has the command stack execute it. False when `init` refuses: nothing has happened then.
///
/// `Operations` is the part of the score that has the operation.
template <class C, class Operations, class... Arguments>
bool execute(Operations &operations, Arguments &&...arguments)
{
    Score &score = static_cast<Score &>(operations);
    auto command = std::make_unique<C>();
    logExecute(*command);
    if (command->init(&score, std::forward<Arguments>(arguments)...)) {
        score.commandStack().pushCommand(command.release());
        return true;
    }
    logCannotExecute(*command);
    return false;
}

} // namespace zarn
