// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws the slurs that lead from one staff of a track to another, once the staves have their
/// places.
void addCrossStaffSlurs(SystemDraft &draft);

} // namespace zarn::engraving
