// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Signs at single beats: articulations, ornaments, fingers, strokes, techniques.
void addBeatSigns(RowDraft &row, const SystemDraft &draft);

/// Strokes of tremolos, through stems and between two beats.
void addTremolos(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
