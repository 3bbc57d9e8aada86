// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

namespace zarn::tool {

/// `zarn events`.
Subcommand eventsCommand();

} // namespace zarn::tool
