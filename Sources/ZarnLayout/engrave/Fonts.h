// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Ink.h>
#include <ZarnLayout/font/ZarnFontFace.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace zarn::layout {
class MusicFont;
class TextMeasure;
} // namespace zarn::layout

namespace zarn::engraving {

/// Face and size of the texts of a role.
layout::TextStyle styleOf(TextRole role, double scale = 1);

/// The fonts in staff spaces, with the boxes of all glyphs at hand.
class Fonts {
public:
    Fonts(const layout::MusicFont &music, const layout::TextMeasure &texts);

    std::uint32_t glyph(Sign sign) const { return _signs[static_cast<unsigned>(sign)]; }

    /// By code point; nothing when the font has none.
    std::optional<std::uint32_t> glyph(char16_t codePoint) const;

    const Box &box(std::uint32_t glyph) const { return _glyphs[glyph].box; }
    const Box &box(Sign sign) const { return box(glyph(sign)); }
    double advance(std::uint32_t glyph) const { return _glyphs[glyph].advance; }

    /// Where stems are put to a head: the outer edge of the stem.
    Point stemUp(std::uint32_t head) const { return _glyphs[head].stemUp; }
    Point stemDown(std::uint32_t head) const { return _glyphs[head].stemDown; }

    /// Size of a text: from its first advance to its last, its ink above and below the base line.
    Box textBox(const std::string &text, TextRole style) const;

    /// How far capitals and digits rise above the base line.
    double capHeight(TextRole role) const;

    /// Visits the ink of a glyph in a few boxes that leave the open corners out.
    template <class Visit>
    void eachPart(std::uint32_t glyph, Visit visit) const
    {
        const Glyph &entry = _glyphs[glyph];
        if (entry.parts.empty())
            visit(entry.box);
        for (const Box &part : entry.parts)
            visit(part);
    }

    const layout::MusicFont &music() const noexcept { return _music; }
    const layout::TextMeasure &texts() const noexcept { return _texts; }

    // Thicknesses.
    double staffLine() const noexcept { return 0.13; }
    double stem() const noexcept { return 0.12; }
    double beam() const noexcept { return 0.5; }
    double ledger() const noexcept { return 0.16; }
    double thinBar() const noexcept { return 0.16; }
    double thickBar() const noexcept { return 0.5; }
    double slurThickness() const noexcept { return 0.22; }
    /// Thickness of dashed and dotted slurs, and length of their dots.
    double slurDotSize() const noexcept { return 0.15; }

private:
    struct Glyph {
        Box box;
        double advance = 0;
        Point stemUp;
        Point stemDown;
        std::vector<Box> parts; ///< empty for the box alone
    };

    const layout::MusicFont &_music;
    const layout::TextMeasure &_texts;
    std::array<std::uint32_t, signCount> _signs;
    std::vector<Glyph> _glyphs;
};

} // namespace zarn::engraving
