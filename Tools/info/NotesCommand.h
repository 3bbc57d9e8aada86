// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn notes`.
Subcommand notesCommand();

} // namespace zarn::tool
