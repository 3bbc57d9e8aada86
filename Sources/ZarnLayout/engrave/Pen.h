// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Fonts.h>
#include <ZarnLayout/engrave/Ink.h>

#include <ZarnCore/ZarnTypesSigns.h>

#include <array>

namespace zarn::engraving {

struct Bow;

/// Makes marks with their boxes, as the fonts have them.
class Pen {
public:
    explicit Pen(const Fonts &fonts) : _fonts(fonts) { }

    const Fonts &fonts() const noexcept { return _fonts; }

    Ink glyph(MarkKind kind, std::uint32_t glyph, double x, double y, double scale = 1) const;
    Ink glyph(MarkKind kind, Sign sign, double x, double y, double scale = 1) const
    {
        return glyph(kind, _fonts.glyph(sign), x, y, scale);
    }
    Ink line(MarkKind kind, Point from, Point to, double thickness) const;
    Ink polyline(MarkKind kind, Points points, double thickness) const;
    Ink polygon(MarkKind kind, Points points) const;

    /// A curve between two ends that bows by a height, upwards above 0; or by its four handles.
    Ink curve(MarkKind kind, Point from, Point to, double height) const;
    Ink curve(MarkKind kind, const std::array<Point, 4> &handles) const;

    /// A curve that is broken as its line says.
    Ink slur(const Bow &bow, SlurLine line) const;

    /// Text that begins, is centred or ends at x; y is its base line.
    enum class Align { Begin, Centre, End };
    Ink text(MarkKind kind, TextRole style, const std::string &text, double x, double y,
             Align align = Align::Begin, double scale = 1) const;

    /// The same of a text in which signs of the music font may stand, as `piecesOf` reads it; one
    /// mark for each piece.
    Inks words(MarkKind kind, TextRole style, const std::string &text, double x, double y,
               Align align = Align::Begin, double scale = 1) const;

    /// Glyphs one behind the other, centred at x: digits, dynamics.
    Inks glyphs(MarkKind kind, const std::vector<Sign> &signs, double x, double y,
                Align align = Align::Centre, double scale = 1) const;

private:
    const Fonts &_fonts;
};

/// The lines of a text.
std::vector<std::string> linesOf(const std::string &text);

/// The digits of a number as signs that follow on the sign of 0.
std::vector<Sign> digitsOf(unsigned number, Sign zero);

} // namespace zarn::engraving
