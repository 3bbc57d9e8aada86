// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/Pen.h>

#include <ZarnLayout/engrave/Bow.h>
#include <ZarnLayout/engrave/WrittenText.h>

#include <cmath>

namespace zarn::engraving {

namespace {

Box boxOf(const Points &points, double margin)
{
    Box box = {1e9, 1e9, -1e9, -1e9};
    for (const Point &point : points)
        box.add({point.x - margin, point.y - margin, point.x + margin, point.y + margin});
    return box;
}

} // namespace

Ink Pen::glyph(MarkKind kind, std::uint32_t glyph, double x, double y, double scale) const
{
    Ink ink;
    ink.shape = Ink::Shape::Glyph;
    ink.kind = kind;
    ink.glyph = glyph;
    ink.at = {x, y};
    ink.scale = scale;
    const Box box = _fonts.box(glyph);
    ink.box = {x + box.left * scale, y + box.top * scale, x + box.right * scale,
               y + box.bottom * scale};
    return ink;
}

Ink Pen::line(MarkKind kind, Point from, Point to, double thickness) const
{
    return polyline(kind, {from, to}, thickness);
}

Ink Pen::polyline(MarkKind kind, Points points, double thickness) const
{
    Ink ink;
    ink.shape = Ink::Shape::Line;
    ink.kind = kind;
    ink.thickness = thickness;
    ink.points = std::move(points);
    const Point &from = ink.points.front();
    const Point &to = ink.points.back();
    ink.box = boxOf(ink.points, 0);
    // A line is as long as its ends say: only its sides are half a thickness away.
    if (ink.points.size() > 2 || from.x != to.x) {
        ink.box.top -= thickness / 2;
        ink.box.bottom += thickness / 2;
    }
    if (ink.points.size() > 2 || from.y != to.y) {
        ink.box.left -= thickness / 2;
        ink.box.right += thickness / 2;
    }
    return ink;
}

Ink Pen::polygon(MarkKind kind, Points points) const
{
    Ink ink;
    ink.shape = Ink::Shape::Polygon;
    ink.kind = kind;
    ink.points = std::move(points);
    ink.box = boxOf(ink.points, 0);
    return ink;
}

Ink Pen::curve(MarkKind kind, Point from, Point to, double height) const
{
    return curve(kind, Bow::arched(from, to, height).handles());
}

Ink Pen::curve(MarkKind kind, const std::array<Point, 4> &handles) const
{
    Ink ink;
    ink.shape = Ink::Shape::Curve;
    ink.kind = kind;
    ink.thickness = _fonts.slurThickness();
    ink.points.assign(handles.begin(), handles.end());
    ink.box = boxOf({handles[0], handles[3]}, 0);
    // What the curve reaches, and what is thick of it.
    constexpr int pieces = 16;
    for (int i = 1; i < pieces; ++i) {
        const double t = static_cast<double>(i) / pieces;
        const double u = 1 - t;
        const double y = u * u * u * handles[0].y + 3 * u * u * t * handles[1].y
            + 3 * u * t * t * handles[2].y + t * t * t * handles[3].y;
        ink.box.top = std::min(ink.box.top, y - ink.thickness / 2);
        ink.box.bottom = std::max(ink.box.bottom, y + ink.thickness / 2);
    }
    return ink;
}

Ink Pen::slur(const Bow &bow, SlurLine line) const
{
    Ink ink = curve(MarkKind::Slur, bow.handles());
    if (line != SlurLine::Solid) {
        ink.dash = line == SlurLine::Dashed ? 0.75 : _fonts.slurDotSize();
        ink.gap = line == SlurLine::Dashed ? 0.45 : 0.4;
    }
    return ink;
}

Ink Pen::text(MarkKind kind, TextRole style, const std::string &text, double x, double y,
              Align align, double scale) const
{
    Ink ink;
    ink.shape = Ink::Shape::Text;
    ink.kind = kind;
    ink.style = style;
    ink.text = text;
    for (char &letter : ink.text)
        if (static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F)
            letter = ' ';
    ink.scale = scale;
    const Box box = _fonts.textBox(ink.text, style);
    const double width = box.right * scale;
    ink.at = {align == Align::Begin ? x : align == Align::Centre ? x - width / 2 : x - width, y};
    ink.box = {ink.at.x + std::min(box.left, 0.0) * scale, y + box.top * scale, ink.at.x + width,
               y + box.bottom * scale};
    return ink;
}

Inks Pen::words(MarkKind kind, TextRole style, const std::string &written, double x, double y,
                Align align, double scale) const
{
    // The em of a music font is four spaces high; among letters its signs are a little larger.
    constexpr double signSize = 1.2 / 4;
    constexpr double gap = 0.15;
    const double signScale = layout::toSpaces(styleOf(style).size) * signSize * scale;
    Inks inks;
    double end = x;
    for (const TextPiece &piece : piecesOf(written, _fonts)) {
        if (!piece.sign) {
            inks.push_back(text(kind, style, piece.letters, end, y, Align::Begin, scale));
            end = inks.back().box.right;
            continue;
        }
        const Box &box = _fonts.box(*piece.sign);
        const double origin = end + (gap - std::min(box.left, 0.0)) * signScale;
        inks.push_back(glyph(kind, *piece.sign, origin, y, signScale));
        // Signs that are put around a line stand on it among letters, but for those below it.
        if (box.top < 0 && box.bottom > 0.3 && box.bottom > -0.5 * box.top)
            inks.back().move(0, -box.bottom * signScale);
        end = std::max(inks.back().box.right, origin + _fonts.advance(*piece.sign) * signScale)
            + gap * signScale;
    }
    const double width = end - x;
    move(inks, align == Align::Begin ? 0 : align == Align::Centre ? -width / 2 : -width, 0);
    return inks;
}

Inks Pen::glyphs(MarkKind kind, const std::vector<Sign> &signs, double x, double y, Align align,
                 double scale) const
{
    double width = 0;
    for (const Sign sign : signs)
        width += _fonts.advance(_fonts.glyph(sign)) * scale;
    double place = align == Align::Begin ? x : align == Align::Centre ? x - width / 2 : x - width;
    Inks inks;
    for (const Sign sign : signs) {
        inks.push_back(glyph(kind, sign, place, y, scale));
        place += _fonts.advance(_fonts.glyph(sign)) * scale;
    }
    return inks;
}

std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines(1);
    for (const char letter : text)
        if (letter == '\n')
            lines.emplace_back();
        else if (letter != '\r')
            lines.back() += letter;
    return lines;
}

std::vector<Sign> digitsOf(unsigned number, Sign zero)
{
    std::vector<Sign> signs;
    for (const char digit : std::to_string(number))
        signs.push_back(zero + (digit - '0'));
    return signs;
}

} // namespace zarn::engraving
