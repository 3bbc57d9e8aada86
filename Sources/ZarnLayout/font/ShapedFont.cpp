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

/// The character that begins at a byte of a text in UTF-8; whatever for broken texts.
hb_codepoint_t characterAt(std::string_view text, std::size_t index) noexcept
{
    const auto byte = [&](std::size_t offset) -> hb_codepoint_t {
        return index + offset < text.size() ? static_cast<unsigned char>(text[index + offset]) : 0;
    };
    if (byte(0) >= 0xF0)
        return (byte(0) & 0x07) << 18 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6
            | (byte(3) & 0x3F);
    if (byte(0) >= 0xE0)
        return (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    return byte(0);
}

/// Writes what HarfBuzz tells of an outline; curves of second order become those of third.
class OutlineWriter {
public:
    static hb_draw_funcs_t *functions()
    {
        static hb_draw_funcs_t *const all = [] {
            hb_draw_funcs_t *made = hb_draw_funcs_create();
            hb_draw_funcs_set_move_to_func(made, moveTo, nullptr, nullptr);
            hb_draw_funcs_set_line_to_func(made, lineTo, nullptr, nullptr);
            hb_draw_funcs_set_quadratic_to_func(made, quadraticTo, nullptr, nullptr);
            hb_draw_funcs_set_cubic_to_func(made, cubicTo, nullptr, nullptr);
            hb_draw_funcs_set_close_path_func(made, closePath, nullptr, nullptr);
            hb_draw_funcs_make_immutable(made);
            return made;
        }();
        return all;
    }

private:
    static GlyphOutline &outlineOf(void *data) { return *static_cast<GlyphOutline *>(data); }

    static void moveTo(hb_draw_funcs_t *, void *data, hb_draw_state_t *, float x, float y, void *)
    {
        outlineOf(data).verbs.push_back(PathVerb::Move);
        outlineOf(data).points.push_back({x, y});
    }
    static void lineTo(hb_draw_funcs_t *, void *data, hb_draw_state_t *, float x, float y, void *)
    {
        outlineOf(data).verbs.push_back(PathVerb::Line);
        outlineOf(data).points.push_back({x, y});
    }
    static void quadraticTo(hb_draw_funcs_t *, void *data, hb_draw_state_t *state, float controlX,
                            float controlY, float x, float y, void *)
    {
        const auto third = [](float from, float control) {
            return from + (control - from) * 2 / 3;
        };
        auto &outline = outlineOf(data);
        outline.verbs.push_back(PathVerb::Cubic);
        outline.points.push_back(
            {third(state->current_x, controlX), third(state->current_y, controlY)});
        outline.points.push_back({third(x, controlX), third(y, controlY)});
        outline.points.push_back({x, y});
    }
    static void cubicTo(hb_draw_funcs_t *, void *data, hb_draw_state_t *, float firstX,
                        float firstY, float secondX, float secondY, float x, float y, void *)
    {
        auto &outline = outlineOf(data);
        outline.verbs.push_back(PathVerb::Cubic);
        outline.points.push_back({firstX, firstY});
        outline.points.push_back({secondX, secondY});
        outline.points.push_back({x, y});
    }
    static void closePath(hb_draw_funcs_t *, void *data, hb_draw_state_t *, void *)
    {
        outlineOf(data).verbs.push_back(PathVerb::Close);
    }
};

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

ShapedFont::Buffer ShapedFont::shaped(std::string_view text) const
{
    Buffer buffer(hb_buffer_create());
    hb_buffer_add_utf8(buffer.get(), text.data(), static_cast<int>(text.size()), 0,
                       static_cast<int>(text.size()));
    hb_buffer_guess_segment_properties(buffer.get());
    hb_shape(_font.get(), buffer.get(), nullptr, 0);
    return buffer;
}

// What the font lacks is shaped as glyph 0; the characters themselves say how wide it may be.
ShapedFont::Extent ShapedFont::measure(std::string_view text) const
{
    const Buffer buffer = shaped(text);
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
            const hb_codepoint_t character = characterAt(text, glyphs[i].cluster);
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

std::optional<std::vector<SetGlyph>> ShapedFont::set(std::string_view text) const
{
    const Buffer buffer = shaped(text);
    unsigned count = 0;
    const hb_glyph_info_t *glyphs = hb_buffer_get_glyph_infos(buffer.get(), &count);
    const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(buffer.get(), &count);
    std::vector<SetGlyph> result;
    result.reserve(count);
    std::int32_t x = 0;
    for (unsigned i = 0; i < count; ++i) {
        if (glyphs[i].codepoint == 0)
            return std::nullopt;
        result.push_back({glyphs[i].codepoint, x + positions[i].x_offset, positions[i].y_offset});
        x += positions[i].x_advance;
    }
    return result;
}

std::optional<std::uint32_t> ShapedFont::glyphOf(char32_t character) const
{
    hb_codepoint_t glyph = 0;
    if (hb_font_get_nominal_glyph(_font.get(), character, &glyph) && glyph != 0)
        return glyph;
    return std::nullopt;
}

GlyphOutline ShapedFont::outline(std::uint32_t glyph) const
{
    GlyphOutline outline;
    hb_font_get_glyph_shape(_font.get(), glyph, OutlineWriter::functions(), &outline);
    return outline;
}

} // namespace zarn::layout
