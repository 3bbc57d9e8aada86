// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <QByteArray>

#include <hb.h>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace zarn::layout {

/// An OpenType font that HarfBuzz reads. All lengths are in font units; y grows upwards.
class ShapedFont {
public:
    /// Raises `CoreException` when the data are no font with glyphs.
    explicit ShapedFont(QByteArray data);

    struct Extent {
        hb_position_t advance = 0;
        hb_position_t left = 0;
        hb_position_t bottom = 0;
        hb_position_t right = 0;
        hb_position_t top = 0;
        bool hasInk = false;
        bool isExact = true;
    };

    /// A line of text as the font sets it: kerned, with ligatures.
    Extent measure(std::string_view text) const;

    /// The glyphs of the same; nothing when the font lacks a character.
    std::optional<std::vector<SetGlyph>> set(std::string_view text) const;

    std::optional<std::uint32_t> glyphOf(char32_t character) const;
    GlyphOutline outline(std::uint32_t glyph) const;

    /// Units of an em.
    int unitsPerEm() const noexcept { return _unitsPerEm; }
    hb_position_t ascent() const noexcept { return _ascent; }
    hb_position_t descent() const noexcept { return _descent; }
    hb_position_t capHeight() const noexcept { return _capHeight; }

private:
    struct Free {
        void operator()(hb_blob_t *blob) const noexcept { hb_blob_destroy(blob); }
        void operator()(hb_face_t *face) const noexcept { hb_face_destroy(face); }
        void operator()(hb_font_t *font) const noexcept { hb_font_destroy(font); }
        void operator()(hb_buffer_t *buffer) const noexcept { hb_buffer_destroy(buffer); }
    };

    using Buffer = std::unique_ptr<hb_buffer_t, Free>;
    /// The glyphs of a text with their positions.
    Buffer shaped(std::string_view text) const;

    QByteArray _data;
    std::unique_ptr<hb_face_t, Free> _face;
    std::unique_ptr<hb_font_t, Free> _font;
    int _unitsPerEm = 1000;
    hb_position_t _ascent = 0;
    hb_position_t _descent = 0;
    hb_position_t _capHeight = 0;
};

} // namespace zarn::layout
