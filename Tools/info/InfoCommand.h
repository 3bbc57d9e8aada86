// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn info`.
Subcommand infoCommand();

} // namespace zarn::tool
