// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws the beams of a row, and the stems that end at them.
void addBeams(RowDraft &row, const Pen &pen);

} // namespace zarn::engraving
