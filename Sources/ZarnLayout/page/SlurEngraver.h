// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws the slurs of a row of notes; those that leave the system by halves.
void addSlurs(RowDraft &row, const SystemDraft &draft);

/// Draws the slurs that lead from one staff of a track to another, once the staves have their
/// places.
void addCrossStaffSlurs(SystemDraft &draft);

} // namespace zarn::engraving
