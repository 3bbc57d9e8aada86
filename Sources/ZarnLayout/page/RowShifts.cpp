// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RowShifts.h>

#include <ZarnLayout/font/ZarnMusicFont.h>

#include <algorithm>

namespace zarn::engraving {

using layout::DrawMark;
using layout::MarkKind;
using layout::MarkMove;
using layout::MarkShape;
using layout::StaffFrame;
using layout::SystemDrawing;
using layout::Unit;

namespace {

Unit shiftOf(const RowShifts &shifts, std::size_t row)
{
    return row < shifts.size() ? shifts[row] : 0;
}

/// From the top line of one row to the bottom line of another.
struct Reach {
    Unit top;
    Unit bottom;

    Reach(const SystemDrawing &drawing, const RowHanger &hanger)
        : top(drawing.staves[hanger.top].top), bottom(drawing.staves[hanger.bottom].bottom)
    {
    }
    Unit middle() const noexcept { return (top + bottom) / 2; }
    /// How much higher than in the font a brace is that covers it, in 1/1024.
    Unit scaleFor(const layout::Box &box) const noexcept
    {
        const Unit height = std::max(1, box.bottom - box.top);
        return static_cast<Unit>(std::int64_t{bottom - top} * layout::staffSpace / height);
    }
};

MarkMove moveOf(const DrawMark &mark, const Reach &before, const Reach &after,
                const layout::MusicFont &font)
{
    const Unit top = after.top - before.top;
    const Unit bottom = after.bottom - before.bottom;
    if (mark.shape == MarkShape::Line)
        return {top, bottom};
    if (mark.kind == MarkKind::Brace) {
        const layout::Box &box = font.box(mark.glyph);
        return {bottom, after.scaleFor(box) - before.scaleFor(box)};
    }
    return {mark.shape == MarkShape::Text ? after.middle() - before.middle() : top, 0};
}

} // namespace

std::shared_ptr<const SystemDrawing> withRowsMoved(const SystemDrawing &drawing,
                                                   const RowHangers &hangers,
                                                   const RowShifts &before, const RowShifts &after,
                                                   const layout::MusicFont &font)
{
    auto moved = std::make_shared<SystemDrawing>();
    moved->staves = drawing.staves;
    moved->bars = drawing.bars;
    for (std::size_t row = 0; row < moved->staves.size(); ++row) {
        StaffFrame &staff = moved->staves[row];
        const Unit by = shiftOf(after, row) - shiftOf(before, row);
        staff.top += by;
        staff.bottom += by;
    }
    const auto &marks = drawing.marks.marks();
    std::vector<MarkMove> moves;
    moves.reserve(marks.size());
    for (const RowHanger &hanger : hangers) {
        const Reach from(drawing, hanger);
        const Reach to(*moved, hanger);
        while (moves.size() < hanger.end)
            moves.push_back(moveOf(marks[moves.size()], from, to, font));
    }
    moved->marks = drawing.marks.movedBy(moves);
    return moved;
}

} // namespace zarn::engraving
