// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Dynamics and hairpins on one line below a staff.
void addDynamics(RowDraft &row, const SystemDraft &draft);

/// Chord symbols and diagrams on one line above a staff.
void addChordSymbols(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
