// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnDrawList.h>

#include <vector>

namespace zarn::layout {

using Polygon = std::vector<Point>;

/// The closed polygons that a path of a draw list runs along, curves cut into `steps` straight
/// lines each.
ZARNLAYOUT_EXPORT std::vector<Polygon> polygonsOf(const DrawList &list, const DrawMark &path,
                                                  int steps = 8);

/// The same for the outline of a glyph of a music font, around its origin and as large as it is
/// drawn without scaling.
ZARNLAYOUT_EXPORT std::vector<Polygon> polygonsOf(const MusicFont &font, GlyphId glyph,
                                                  int steps = 8);

} // namespace zarn::layout
