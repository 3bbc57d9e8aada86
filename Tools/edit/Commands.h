// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Parameter.h"

#include <vector>

namespace zarn::tool {

class EditSession;

/// One command that can be typed: a row of the tables in this folder.
struct Command {
    QString name;
    std::vector<Parameter> parameters;
    QString help;       ///< one line
    QString entryPoint; ///< what it calls: "Score::createBars"; empty for the session's own

    /// Does it; false when the score refused. May raise `Failure`.
    bool (*run)(EditSession &, const Values &);

    /// Whether t2, s1 and v2 may stand anywhere behind the name.
    bool takesWhere = false;

    /// What may be given by name anywhere behind the command's: "--strings 7".
    std::vector<Parameter> options = {};
};

/// The tables, one per area.
const std::vector<Command> &placeCommands();
const std::vector<Command> &noteCommands();
const std::vector<Command> &linkCommands();
const std::vector<Command> &pitchCommands();
const std::vector<Command> &noteMarkCommands();
const std::vector<Command> &beatMarkCommands();
const std::vector<Command> &fingeringCommands();
const std::vector<Command> &chordCommands();
const std::vector<Command> &lyricsCommands();
const std::vector<Command> &barCommands();
const std::vector<Command> &structureCommands();
const std::vector<Command> &layoutCommands();
const std::vector<Command> &attributeCommands();
const std::vector<Command> &trackCommands();
const std::vector<Command> &playingCommands();
const std::vector<Command> &soundCommands();
const std::vector<Command> &mixerCommands();
const std::vector<Command> &scoreCommands();
const std::vector<Command> &sessionCommands();

/// The areas with their titles, in the order of the help.
struct CommandArea {
    const char *title;
    const std::vector<Command> &commands;
};
const std::vector<CommandArea> &commandAreas();

/// The command of a name, or of the option of "zarn new" that does the same: "--tempo", "track".
/// Null when there is none.
const Command *findCommand(const QString &name);

/// "add-bars BAR [COUNT]".
QString usageOf(const Command &command);

/// The list of all commands, or all about one of them.
QString helpText();
QString helpText(const Command &command);

} // namespace zarn::tool
