// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// Where a library finds what the process has once: the core, the logging categories "zarn.core"
/// and "zarn.core.sounfonts", the priorities of listeners, the installed instrument sets.
__attribute__((visibility("default"))) std::vector<const void *> addressesSeenByTheSecondLibrary();
