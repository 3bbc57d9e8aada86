// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <vector>

namespace zarn::tool {

/// Everything that the program can do, in the order in which its help lists it.
const std::vector<Subcommand> &subcommands();

/// Runs the program; the answer is its exit code. Never raises.
int runProgram(int argc, char **argv) noexcept;

} // namespace zarn::tool
