// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zarn::tool {

class EditSession;

/// How the lines of an edit session ended.
enum class LoopEnd {
    AtEnd,   ///< all lines were done
    AtError, ///< a line of a script was wrong; it changed nothing and no later one was read
};

/// Runs a script, from a file or a pipe. `name` stands for it in messages.
LoopEnd runScript(EditSession &session, std::istream &lines, const std::string &name);

/// Runs the commands of a command line.
LoopEnd runCommands(EditSession &session, const std::vector<std::string> &commands);

/// Runs what a person types; a wrong line is explained and the next one awaited. Asks before
/// changes are lost.
LoopEnd runInteractively(EditSession &session);

} // namespace zarn::tool
