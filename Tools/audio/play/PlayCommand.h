// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn play`.
Subcommand playCommand();

} // namespace zarn::tool
