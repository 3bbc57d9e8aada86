// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn bank`.
Subcommand bankCommand();

} // namespace zarn::tool
