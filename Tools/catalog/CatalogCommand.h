// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn catalog`.
Subcommand catalogCommand();

} // namespace zarn::tool
