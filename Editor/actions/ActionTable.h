// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Action.h"

namespace zarn::editor {

/// All actions, in the order of the menus; made when it is called first, in the language that is
/// installed then.
const std::vector<ActionGroup> &actionTable();

// What it consists of, each in a file of its own.

std::vector<ActionGroup> fileActions();
std::vector<ActionGroup> editActions();
std::vector<ActionGroup> moveActions();
std::vector<ActionGroup> entryActions();
std::vector<ActionGroup> noteActions();
std::vector<ActionGroup> barActions();
std::vector<ActionGroup> trackActions();
std::vector<ActionGroup> scoreActions();
std::vector<ActionGroup> attributeActions();
std::vector<ActionGroup> playActions();
std::vector<ActionGroup> viewActions();

} // namespace zarn::editor
