// SPDX-License-Identifier: MIT
#pragma once

#include "RichScore.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// A command with its arguments on the rich score, and what it announces.
struct CommandRow {
    std::string name;
    std::function<bool(SmallScore &)> act;
    const char *events;
    const char *undoEvents;    ///< null when they are the same
    bool needsNoPlace = false; ///< whether it can be done on a score without bars and tracks
};

inline void PrintTo(const CommandRow &row, std::ostream *out)
{
    *out << row.name;
}

/// An area of commands, with a file of its own in rows/: the rows of the laws, and arguments that
/// its operations refuse.
struct CommandRowsOfArea {
    std::vector<CommandRow> (*rows)();
    void (*expectRefused)(rich::RichScore &rich);
};
const std::vector<CommandRowsOfArea> &commandAreas();

/// Each operation is refused, and leaves no trace.
void expectAllRefused(zarn::Score &score, const std::vector<std::function<bool()>> &refused);
