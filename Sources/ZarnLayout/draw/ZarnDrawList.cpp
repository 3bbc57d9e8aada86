// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnDrawList.h>

#include <algorithm>
#include <cmath>

namespace zarn::layout {
namespace {

Unit scaledBy(Unit length, Unit factor) noexcept
{
    return static_cast<Unit>((std::int64_t{length} * factor + (1 << 9)) >> 10);
}

/// Around a line of some thickness; flat ends reach no further than the line.
Box lineBox(const DrawMark &line)
{
    const double dx = line.to.x - line.at.x;
    const double dy = line.to.y - line.at.y;
    const double length = std::hypot(dx, dy);
    const double half = line.thickness / 2.0;
    const bool isRound = line.cap == LineCap::Round || length == 0;
    const double acrossX = isRound ? half : std::abs(dy) / length * half;
    const double acrossY = isRound ? half : std::abs(dx) / length * half;
    return {static_cast<Unit>(std::floor(std::min(line.at.x, line.to.x) - acrossX)),
            static_cast<Unit>(std::floor(std::min(line.at.y, line.to.y) - acrossY)),
            static_cast<Unit>(std::ceil(std::max(line.at.x, line.to.x) + acrossX)),
            static_cast<Unit>(std::ceil(std::max(line.at.y, line.to.y) + acrossY))};
}

} // namespace

DrawList::DrawList() = default;
DrawList::~DrawList() = default;

std::string_view DrawList::characters(const DrawMark &mark) const
{
    const Text &text = textOf(mark);
    return std::string_view(_characters).substr(text.firstByte, text.byteCount);
}

Box glyphBox(const MusicFont &font, GlyphId glyph, Point scale, unsigned quarterTurns)
{
    const Box &box = font.box(glyph);
    const Box scaled{scaledBy(box.left, scale.x), scaledBy(box.top, scale.y),
                     scaledBy(box.right, scale.x), scaledBy(box.bottom, scale.y)};
    switch (quarterTurns % 4) {
    case 1:
        return {scaled.top, -scaled.right, scaled.bottom, -scaled.left};
    case 2:
        return {-scaled.right, -scaled.bottom, -scaled.left, -scaled.top};
    case 3:
        return {-scaled.bottom, scaled.left, -scaled.top, scaled.right};
    default:
        return scaled;
    }
}

Box DrawList::box(const DrawMark &mark, const MusicFont &font) const
{
    switch (mark.shape) {
    case MarkShape::Glyph:
        return glyphBox(font, mark.glyph, mark.to, mark.detail).movedBy(mark.at);
    case MarkShape::Line:
        return lineBox(mark);
    case MarkShape::Text:
        return textOf(mark).ink.movedBy(mark.at);
    case MarkShape::Path:
        break;
    }
    const Path &path = this->path(mark);
    if (path.pointCount == 0)
        return {};
    const auto first = _points.begin() + path.firstPoint;
    const auto last = first + path.pointCount;
    const auto [left, right] =
        std::minmax_element(first, last, [](Point a, Point b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(first, last, [](Point a, Point b) { return a.y < b.y; });
    const Box box{left->x, top->y, right->x, bottom->y};
    return box.grownBy((mark.thickness + 1) / 2);
}

Box DrawList::box(const MusicFont &font) const
{
    Box all;
    for (const DrawMark &mark : _marks)
        all = all.unitedWith(box(mark, font));
    return all;
}

std::size_t DrawList::byteCount() const noexcept
{
    return sizeof(DrawList) + _marks.capacity() * sizeof(DrawMark)
        + _paths.capacity() * sizeof(Path) + _texts.capacity() * sizeof(Text)
        + _points.capacity() * sizeof(Point) + _verbs.capacity() * sizeof(PathVerb)
        + _characters.capacity();
}

} // namespace zarn::layout
