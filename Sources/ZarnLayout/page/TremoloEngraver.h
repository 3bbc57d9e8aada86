// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Strokes of tremolos through the stems of chords, and above or below those without one.
void addTremolos(RowDraft &row, const SystemDraft &draft);

/// Strokes of tremolos between two chords: they make way for notes of other voices.
void addTremolosBetween(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
