// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Dynamics and hairpins, those that follow one another on one line: above what is sung, between
/// the hands of a player whom they are said to once, else below the staff.
void addDynamics(RowDraft &row, const SystemDraft &draft);

/// Chord symbols and diagrams on one line above a staff.
void addChordSymbols(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
