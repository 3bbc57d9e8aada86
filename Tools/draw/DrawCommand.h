// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn draw`.
Subcommand drawCommand();

} // namespace zarn::tool
