// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// Tells what a chord symbol means, and which chords some notes are.
Subcommand chordCommand();

} // namespace zarn::tool
