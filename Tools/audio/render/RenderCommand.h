// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn render`.
Subcommand renderCommand();

} // namespace zarn::tool
