// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zarn::engraving {

/// How far the rows of a system are moved down from where their ink wants them, so that a page is
/// full; by row, empty where nothing moves. Rows keep their order, the first stays in its place.
using RowShifts = std::vector<layout::Unit>;

/// Rows that marks of a drawing hang on: those up to `end` that are behind the hanger before.
/// Between different rows the ends of lines go with one each, braces grow, and texts stay in the
/// middle.
struct RowHanger {
    std::uint32_t end = 0;
    std::uint16_t top = 0;
    std::uint16_t bottom = 0;
};
using RowHangers = std::vector<RowHanger>;

/// A drawing whose rows are moved by `before`, as it is when they are moved by `after`. Whatever
/// the way from one to the other, the drawing is the same, value by value.
std::shared_ptr<const layout::SystemDrawing>
withRowsMoved(const layout::SystemDrawing &drawing, const RowHangers &hangers,
              const RowShifts &before, const RowShifts &after, const layout::MusicFont &font);

} // namespace zarn::engraving
