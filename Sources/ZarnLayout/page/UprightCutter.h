// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Interrupts the upright strokes of a row, of arpeggios, brushes and bends, where ties, slurs and
/// slides lead from one side of them to the other: neither can go around the other.
void cutUprights(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
