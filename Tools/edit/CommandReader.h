// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Values.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace zarn::tool {

struct Command;
struct ReadingContext;

/// A line that makes sense: a command and the values for its parameters.
struct ReadLine {
    const Command *command;
    Values values;
    int column; ///< where the command's name stands, counted from 1
};

/// Reads a line; nothing for one that is empty or a comment. Raises `LineError` with what would
/// be right; nothing has happened then.
std::optional<ReadLine> readLine(const QString &line, const ReadingContext &context);

/// Words that could stand in place of the last one of an unfinished line.
std::vector<std::string> completions(const std::string &line);

} // namespace zarn::tool
