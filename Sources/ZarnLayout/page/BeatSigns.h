// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Articulations at the heads or stems; slurs go around them.
void addArticulations(RowDraft &row, const SystemDraft &draft);

/// Other signs at single beats: ornaments, fingers, strokes, techniques.
void addBeatSigns(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
