// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// Tells what a scale has, and which scales some notes belong to.
Subcommand scaleCommand();

} // namespace zarn::tool
