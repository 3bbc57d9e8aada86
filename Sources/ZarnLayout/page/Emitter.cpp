// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/Emitter.h>

#include <ZarnLayout/engrave/Bow.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::engraving {

using layout::fromSpaces;

namespace {

layout::Point pointOf(const Point &point, double x, double y)
{
    return {fromSpaces(point.x + x), fromSpaces(point.y + y)};
}

} // namespace

void Emitter::emit(const Ink &ink, double x, double y) const
{
    switch (ink.shape) {
    case Ink::Shape::Glyph: {
        layout::GlyphForm form = layout::GlyphForm::scaled(ink.scale);
        if (ink.stretch != 0)
            form.scale.x = fromSpaces(ink.stretch);
        _builder.glyph(ink.kind, ink.place, static_cast<layout::GlyphId>(ink.glyph),
                       pointOf(ink.at, x, y), form);
        break;
    }
    case Ink::Shape::Line:
        if (ink.points.size() == 2) {
            _builder.line(ink.kind, ink.place, pointOf(ink.points[0], x, y),
                          pointOf(ink.points[1], x, y), fromSpaces(ink.thickness),
                          {fromSpaces(ink.dash), fromSpaces(ink.gap)});
        } else {
            layout::PathShape path;
            path.moveTo(pointOf(ink.points.front(), x, y));
            for (std::size_t i = 1; i < ink.points.size(); ++i)
                path.lineTo(pointOf(ink.points[i], x, y));
            _builder.stroke(ink.kind, ink.place, path, fromSpaces(ink.thickness));
        }
        break;
    case Ink::Shape::Polygon: {
        std::vector<layout::Point> corners;
        corners.reserve(ink.points.size());
        for (const Point &point : ink.points)
            corners.push_back(pointOf(point, x, y));
        _builder.fill(ink.kind, ink.place, layout::PathShape::polygon(corners));
        break;
    }
    case Ink::Shape::Curve:
        if (ink.dash > 0)
            emitDashes(ink, x, y);
        else
            emitCurve(ink, x, y);
        break;
    case Ink::Shape::Text: {
        const layout::TextStyle style = styleOf(ink.style, ink.scale);
        const layout::TextExtent extent = _fonts.texts().measure(ink.text, style);
        _builder.text(ink.kind, ink.place, ink.text, style, pointOf(ink.at, x, y), extent);
        if (!extent.isExact)
            _problems.add(ink.place,
                          "The text font lacks characters of \"" + ink.text
                              + "\": fonts of the system draw it, and its width is estimated.");
        break;
    }
    }
}

void Emitter::emitCurve(const Ink &ink, double x, double y) const
{
    constexpr double end = 0.05;
    const double bow = ink.thickness * 2 / 3; // a handle moves the middle by three quarters
    const auto at = [&](std::size_t number, double shift) {
        return pointOf({ink.points[number].x, ink.points[number].y + shift}, x, y);
    };
    layout::PathShape path;
    path.moveTo(at(0, -end));
    path.curveTo(at(1, -bow), at(2, -bow), at(3, -end));
    path.lineTo(at(3, end));
    path.curveTo(at(2, bow), at(1, bow), at(0, end));
    path.close();
    _builder.fill(ink.kind, ink.place, path);
}

/// Pieces of one thickness along the curve, a whole one at each end.
void Emitter::emitDashes(const Ink &ink, double x, double y) const
{
    const std::array<Point, 4> handles = {ink.points[0], ink.points[1], ink.points[2],
                                          ink.points[3]};
    constexpr std::size_t count = 400;
    std::array<Point, count + 1> points;
    std::array<double, count + 1> ways = {}; // from the begin of the curve
    for (std::size_t i = 0; i <= count; ++i) {
        points[i] = pointOn(handles, static_cast<double>(i) / count);
        if (i > 0)
            ways[i] = ways[i - 1]
                + std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    }
    const double pieces = std::max(2.0, std::round((ways[count] + ink.gap) / (ink.dash + ink.gap)));
    const double stretch = ways[count] / (pieces * (ink.dash + ink.gap) - ink.gap);
    const double period = (ink.dash + ink.gap) * stretch;
    layout::PathShape path;
    for (double number = 0; number < pieces; ++number) {
        const double begin = number * period;
        const auto indexAt = [&](double way) {
            const auto at = std::lower_bound(ways.begin(), ways.end() - 1, way - 1e-9);
            return static_cast<std::size_t>(at - ways.begin());
        };
        const std::size_t first = std::min(indexAt(begin), count - 1);
        const std::size_t last = std::max(indexAt(begin + ink.dash * stretch), first + 1);
        const auto beside = [&](std::size_t i, double shift) {
            const Point &before = points[i == 0 ? 0 : i - 1];
            const Point &behind = points[std::min(i + 1, count)];
            const double length = std::hypot(behind.x - before.x, behind.y - before.y);
            const double scale = length > 0 ? shift / length : 0;
            return pointOf({points[i].x - (behind.y - before.y) * scale,
                            points[i].y + (behind.x - before.x) * scale},
                           x, y);
        };
        const double half = _fonts.slurDotSize() / 2;
        path.moveTo(beside(first, -half));
        for (std::size_t i = first + 1; i <= last; ++i)
            path.lineTo(beside(i, -half));
        for (std::size_t i = last + 1; i-- > first;)
            path.lineTo(beside(i, half));
        path.close();
    }
    _builder.fill(ink.kind, ink.place, path);
}

} // namespace zarn::engraving
