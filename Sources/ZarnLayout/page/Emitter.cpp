// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/Emitter.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>

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
        for (const Point &point : ink.points)
            corners.push_back(pointOf(point, x, y));
        _builder.fill(ink.kind, ink.place, layout::PathShape::polygon(corners));
        break;
    }
    case Ink::Shape::Curve:
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

} // namespace zarn::engraving
