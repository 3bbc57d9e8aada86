// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <QPainterPath>

#include <map>
#include <utility>

namespace zarn::views {

/// Outlines of glyphs as Qt paints them, made when they are asked for and kept.
class GlyphPaths {
public:
    /// A glyph of the music font in units of the layout, around its origin.
    const QPainterPath &music(const layout::MusicFont &font, layout::GlyphId glyph);

    /// A glyph of the text font with an em of 1000, around its origin.
    const QPainterPath &text(layout::TextFace face, std::uint32_t glyph);

private:
    std::uint64_t _musicFont = 0; ///< serial number of the one whose glyphs are kept
    std::map<char32_t, QPainterPath> _music;
    std::map<std::pair<layout::TextFace, std::uint32_t>, QPainterPath> _text;
};

/// A path of a draw list.
QPainterPath painterPath(const layout::DrawList &list, const layout::DrawMark &path);

} // namespace zarn::views
