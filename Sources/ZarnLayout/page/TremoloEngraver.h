// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Strokes of tremolos: through the stems of chords, above or below those without one, and between
/// two chords, where they make way for notes of other voices.
void addTremolos(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
