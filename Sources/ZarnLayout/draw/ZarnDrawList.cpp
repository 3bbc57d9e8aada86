// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnDrawList.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>

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
    // Most are level or upright.
    const double length = dx == 0 || dy == 0 ? std::abs(dx + dy) : std::hypot(dx, dy);
    const double half = line.thickness / 2.0;
    const bool isRound = line.cap == LineCap::Round || length == 0;
    const double acrossX = isRound ? half : std::abs(dy) / length * half;
    const double acrossY = isRound ? half : std::abs(dx) / length * half;
    return {static_cast<Unit>(std::floor(std::min(line.at.x, line.to.x) - acrossX)),
            static_cast<Unit>(std::floor(std::min(line.at.y, line.to.y) - acrossY)),
            static_cast<Unit>(std::ceil(std::max(line.at.x, line.to.x) + acrossX)),
            static_cast<Unit>(std::ceil(std::max(line.at.y, line.to.y) + acrossY))};
}

/// Stretches [low, high] over what a cubic curve reaches in one coordinate.
void stretchOver(double from, double first, double second, double to, double &low, double &high)
{
    const auto at = [&](double t) {
        const double s = 1 - t;
        return s * s * s * from + 3 * s * s * t * first + 3 * s * t * t * second + t * t * t * to;
    };
    low = std::min({low, from, to});
    high = std::max({high, from, to});
    // Where the slope is none: a t^2 + b t + c = 0.
    const double a = to - 3 * second + 3 * first - from;
    const double b = 2 * (second - 2 * first + from);
    const double c = first - from;
    const double root = b * b - 4 * a * c;
    if (root < 0)
        return;
    const double q = -0.5 * (b + std::copysign(std::sqrt(root), b));
    for (const double t : {a == 0 ? -1 : q / a, q == 0 ? -1 : c / q}) {
        if (t > 0 && t < 1) {
            low = std::min(low, at(t));
            high = std::max(high, at(t));
        }
    }
}

/// Around the points and curves of a path.
Box pathBox(const DrawList::Path &path, const std::vector<Point> &points,
            const std::vector<PathVerb> &verbs)
{
    if (path.pointCount == 0)
        return {};
    const Point *next = points.data() + path.firstPoint;
    double left = next->x;
    double right = left;
    double top = next->y;
    double bottom = top;
    Point last = *next;
    for (std::uint32_t i = 0; i < path.verbCount; ++i) {
        const PathVerb verb = verbs[path.firstVerb + i];
        if (verb == PathVerb::Close)
            continue;
        if (verb == PathVerb::Cubic) {
            stretchOver(last.x, next[0].x, next[1].x, next[2].x, left, right);
            stretchOver(last.y, next[0].y, next[1].y, next[2].y, top, bottom);
            next += 2;
        }
        last = *next++;
        left = std::min<double>(left, last.x);
        right = std::max<double>(right, last.x);
        top = std::min<double>(top, last.y);
        bottom = std::max<double>(bottom, last.y);
    }
    return {static_cast<Unit>(std::floor(left)), static_cast<Unit>(std::floor(top)),
            static_cast<Unit>(std::ceil(right)), static_cast<Unit>(std::ceil(bottom))};
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
    return pathBox(path(mark), _points, _verbs).grownBy((mark.thickness + 1) / 2);
}

Box DrawList::box(const MusicFont &font) const
{
    Box all;
    for (const DrawMark &mark : _marks)
        all = all.unitedWith(box(mark, font));
    return all;
}

DrawList DrawList::movedByBars(std::int32_t bars) const
{
    DrawList moved = *this;
    for (DrawMark &mark : moved._marks)
        if (mark.place.bar >= 0)
            mark.place.bar += bars;
    return moved;
}

DrawList DrawList::movedBy(const std::vector<MarkMove> &moves) const
{
    DrawList moved = *this;
    for (std::size_t i = 0; i < std::min(moves.size(), moved._marks.size()); ++i) {
        DrawMark &mark = moved._marks[i];
        if (mark.shape == MarkShape::Path) {
            const Path &path = moved.path(mark);
            for (std::uint32_t k = 0; k < path.pointCount; ++k)
                moved._points[path.firstPoint + k].y += moves[i].at;
            continue;
        }
        mark.at.y += moves[i].at;
        mark.to.y += moves[i].to;
    }
    return moved;
}

DrawList DrawList::withText(std::size_t mark, std::string_view characters, Point at,
                            const TextExtent &extent) const
{
    DrawList list = *this;
    list._marks.at(mark).at = at;
    Text &text = list._texts.at(list._marks[mark].detail);
    list._characters.replace(text.firstByte, text.byteCount, characters);
    const auto size = static_cast<std::uint32_t>(characters.size());
    for (Text &other : list._texts)
        if (other.firstByte > text.firstByte)
            other.firstByte += size - text.byteCount;
    text.byteCount = size;
    text.advance = extent.advance;
    text.ink = extent.ink;
    return list;
}

std::size_t DrawList::byteCount() const noexcept
{
    return sizeof(DrawList) + _marks.capacity() * sizeof(DrawMark)
        + _paths.capacity() * sizeof(Path) + _texts.capacity() * sizeof(Text)
        + _points.capacity() * sizeof(Point) + _verbs.capacity() * sizeof(PathVerb)
        + _characters.capacity();
}

} // namespace zarn::layout
