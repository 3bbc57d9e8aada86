// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn edit`.
Subcommand editCommand();

} // namespace zarn::tool
