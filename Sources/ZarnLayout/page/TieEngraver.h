// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws the ties of a row of notes, those over the ends of the system by halves.
void addTies(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
