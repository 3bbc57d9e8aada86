// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn {

class Automation;

/// What goes out of the automations of a track and what comes in. The automations are looked at
/// during a call and not owned, wherever they come from: those to be removed are named by type and
/// place, those to be inserted are copied and replace what stands at their place.
struct AutomationChanges {
    int track = -1; ///< -1 is the master track
    std::vector<const Automation *> removed;
    std::vector<const Automation *> inserted;
};

} // namespace zarn
