// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ShapedFont.h>

#include <ZarnCore/ZarnAssert.h>

#include <hb-ot.h>

#include <algorithm>
#include <utility>

namespace zarn::layout {
namespace {

/// Whether a character is as wide as the em: Chinese, Japanese, Korean and what else Unicode's
/// East Asian Width calls wide.
bool isWide(hb_codepoint_t character) noexcept
{
    return (character >= 0x1100 && character <= 0x115F)
        || (character >= 0x2E80 && character <= 0xA4CF)
        || (character >= 0xAC00 && character <= 0xD7A3)
        || (character >= 0xF900 && character <= 0xFAFF)
        || (character >= 0xFE30 && character <= 0xFE6F)
        || (character >= 0xFF00 && character <= 0xFF60)
        || (character >= 0xFFE0 && character <= 0xFFE6)
        || (character >= 0x1F300 && character <= 0x1F64F)
        || (character >= 0x20000 && character <= 0x3FFFD);
}

} // namespace

ShapedFont::ShapedFont(QByteArray data) : _data(std::move(data))
{
    const std::unique_ptr<hb_blob_t, Free> blob(
        hb_blob_create(_data.constData(), static_cast<unsigned>(_data.size()),
                       HB_MEMORY_MODE_READONLY, nullptr, nullptr));
    _face.reset(hb_face_create(blob.get(), 0));
    if (hb_face_get_glyph_count(_face.get()) == 0)
        ZARN_RAISE_IN("zarn::layout::ShapedFont", "These data are no font");
    hb_face_make_immutable(_face.get());
    _font.reset(hb_font_create(_face.get()));
    _unitsPerEm = static_cast<int>(hb_face_get_upem(_face.get()));
    hb_font_set_scale(_font.get(), _unitsPerEm, _unitsPerEm);
    hb_font_make_immutable(_font.get());

    hb_font_extents_t extents = {};
    hb_font_get_h_extents(_font.get(), &extents);
    _ascent = extents.ascender;
    _descent = -extents.descender;
    hb_codepoint_t capital = 0;
    hb_glyph_extents_t ink = {};
    if (hb_font_get_nominal_glyph(_font.get(), 'H', &capital)
        && hb_font_get_glyph_extents(_font.get(), capital, &ink))
        _capHeight = ink.y_bearing;
}

ShapedFont::Extent ShapedFont::measure(std::string_view text) const
{
    const std::unique_ptr<hb_buffer_t, Free> buffer(hb_buffer_create());
    hb_buffer_add_utf8(buffer.get(), text.data(), static_cast<int>(text.size()), 0,
                       static_cast<int>(text.size()));
    hb_buffer_guess_segment_properties(buffer.get());
    // Glyph 0 is shaped for what the font lacks; the characters themselves say how wide it may be.
    hb_shape(_font.get(), buffer.get(), nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t *glyphs = hb_buffer_get_glyph_infos(buffer.get(), &count);
    const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(buffer.get(), &count);

    Extent extent;
    const auto addInk = [&extent](hb_position_t left, hb_position_t bottom, hb_position_t right,
                                  hb_position_t top) {
        extent.left = extent.hasInk ? std::min(extent.left, left) : left;
        extent.bottom = extent.hasInk ? std::min(extent.bottom, bottom) : bottom;
        extent.right = extent.hasInk ? std::max(extent.right, right) : right;
        extent.top = extent.hasInk ? std::max(extent.top, top) : top;
        extent.hasInk = true;
    };
    for (unsigned i = 0; i < count; ++i) {
        if (glyphs[i].codepoint == 0) {
            const auto *at =
                reinterpret_cast<const unsigned char *>(text.data()) + glyphs[i].cluster;
            const bool threeBytes = *at >= 0xE0;
            hb_codepoint_t character = *at;
            if (threeBytes && *at < 0xF0 && glyphs[i].cluster + 2 < text.size())
                character = (*at & 0x0Fu) << 12 | (at[1] & 0x3Fu) << 6 | (at[2] & 0x3Fu);
            else if (*at >= 0xF0 && glyphs[i].cluster + 3 < text.size())
                character = (*at & 0x07u) << 18 | (at[1] & 0x3Fu) << 12 | (at[2] & 0x3Fu) << 6
                    | (at[3] & 0x3Fu);
            const hb_position_t width = isWide(character) ? _unitsPerEm : _unitsPerEm * 3 / 5;
            addInk(extent.advance, -_descent, extent.advance + width, _ascent);
            extent.advance += width;
            extent.isExact = false;
            continue;
        }
        hb_glyph_extents_t ink = {};
        if (hb_font_get_glyph_extents(_font.get(), glyphs[i].codepoint, &ink) && ink.width != 0) {
            const hb_position_t x = extent.advance + positions[i].x_offset + ink.x_bearing;
            const hb_position_t y = positions[i].y_offset + ink.y_bearing;
            addInk(x, y + ink.height, x + ink.width, y);
        }
        extent.advance += positions[i].x_advance;
    }
    return extent;
}

} // namespace zarn::layout
