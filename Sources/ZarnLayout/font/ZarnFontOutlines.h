// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/font/ZarnFontFace.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace zarn::layout {

class ShapedFont;

/// The outline of one glyph, in font units; x grows to the right and y upwards, as in the font.
struct GlyphOutline {
    struct Corner {
        float x = 0;
        float y = 0;
    };
    std::vector<PathVerb> verbs;
    std::vector<Corner> points;
};

/// One glyph of a text that was set: its number in the font, and its origin in font units from the
/// begin of the text on.
struct SetGlyph {
    std::uint32_t glyph = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// Outlines of a font, read from its file when they are asked for.
/// Immutable: any thread may ask.
class ZARNLAYOUT_EXPORT FontOutlines {
public:
    /// Bravura; its glyphs by their code points.
    static const FontOutlines &music();
    static const FontOutlines &text(TextFace face);

    /// Reads an OpenType font from its file. Raises `CoreException` when it is none.
    static std::unique_ptr<const FontOutlines> read(const QByteArray &file);

    int unitsPerEm() const noexcept;

    /// Number of the glyph for a character; nothing when the font lacks it.
    std::optional<std::uint32_t> glyphOf(char32_t character) const;

    GlyphOutline outline(std::uint32_t glyph) const;

    /// How large the font draws a character, where an em is four staff spaces, as SMuFL has it;
    /// nothing when the font lacks it.
    struct GlyphSize {
        Box ink;
        Unit advance = 0;
    };
    std::optional<GlyphSize> musicSize(char32_t character) const;

    /// A line of text in UTF-8 as `TextMeasure` measures it; nothing when the font lacks one of its
    /// characters.
    std::optional<std::vector<SetGlyph>> set(std::string_view text) const;

    FontOutlines(const FontOutlines &) = delete;
    FontOutlines &operator=(const FontOutlines &) = delete;
    ~FontOutlines();

private:
    explicit FontOutlines(const QByteArray &file);

    std::unique_ptr<const ShapedFont> _font;
};

} // namespace zarn::layout
