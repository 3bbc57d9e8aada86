// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn convert`.
Subcommand convertCommand();

} // namespace zarn::tool
