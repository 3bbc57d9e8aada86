// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn new`.
Subcommand newCommand();

} // namespace zarn::tool
