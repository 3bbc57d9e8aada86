// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/Fonts.h>

#include <ZarnLayout/font/ZarnMusicFont.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <algorithm>

namespace zarn::engraving {

using layout::GlyphAnchor;
using layout::GlyphId;
using layout::TextFace;
using layout::toSpaces;

namespace {

Box boxOf(const layout::Box &box)
{
    return {toSpaces(box.left), toSpaces(box.top), toSpaces(box.right), toSpaces(box.bottom)};
}

/// The ink of a glyph in up to three boxes: what the corners leave open is not in them.
std::vector<Box> partsOf(const Box &box, const std::array<std::optional<Point>, 4> &cuts)
{
    const auto &[northWest, northEast, southEast, southWest] = cuts;
    double top = box.top;
    double bottom = box.bottom;
    for (const auto &cut : {northWest, northEast})
        if (cut)
            top = std::max(top, cut->y);
    for (const auto &cut : {southWest, southEast})
        if (cut)
            bottom = std::min(bottom, cut->y);
    if (top >= bottom)
        return {box};
    std::vector<Box> parts = {{box.left, top, box.right, bottom}};
    if (top > box.top)
        parts.push_back({northWest ? northWest->x : box.left, box.top,
                         northEast ? northEast->x : box.right, top});
    if (bottom < box.bottom)
        parts.push_back({southWest ? southWest->x : box.left, bottom,
                         southEast ? southEast->x : box.right, box.bottom});
    return parts;
}

} // namespace

layout::TextStyle styleOf(TextRole role, double scale)
{
    struct Style {
        TextFace face;
        double size; ///< of the em square, in staff spaces
    };
    const auto style = [role]() -> Style {
        switch (role) {
        case TextRole::Words:
            return {TextFace::Italic, 2.0};
        case TextRole::Fret:
            return {TextFace::Roman, 1.85};
        case TextRole::Letter:
            return {TextFace::Italic, 1.6};
        case TextRole::Lyric:
            return {TextFace::Roman, 2.0};
        case TextRole::ChordSymbol:
            return {TextFace::Roman, 2.3};
        case TextRole::Tempo:
            return {TextFace::Bold, 2.2};
        case TextRole::Section:
            return {TextFace::Bold, 2.2};
        case TextRole::SectionLetter:
            return {TextFace::Bold, 2.4};
        case TextRole::Direction:
            return {TextFace::BoldItalic, 2.1};
        case TextRole::Ending:
            return {TextFace::Roman, 1.7};
        case TextRole::BarNumber:
            return {TextFace::Roman, 1.5};
        case TextRole::TrackName:
            return {TextFace::Roman, 2.1};
        case TextRole::Tuning:
            return {TextFace::Roman, 1.5};
        case TextRole::Tuplet:
            return {TextFace::BoldItalic, 1.7};
        case TextRole::Finger:
            return {TextFace::Roman, 1.2};
        case TextRole::Fingering:
            return {TextFace::Roman, 1.65};
        case TextRole::Title:
            return {TextFace::Roman, 4.6};
        case TextRole::Subtitle:
            return {TextFace::Roman, 2.8};
        case TextRole::Credit:
            return {TextFace::Roman, 2.1};
        case TextRole::PageText:
            return {TextFace::Roman, 1.8};
        }
        return {TextFace::Roman, 2.0};
    }();
    return {style.face, layout::fromSpaces(style.size * scale)};
}

Fonts::Fonts(const layout::MusicFont &music, const layout::TextMeasure &texts)
    : _music(music), _texts(texts)
{
    for (unsigned i = 0; i < signCount; ++i)
        _signs[i] = static_cast<std::uint32_t>(music.glyph(nameOf(static_cast<Sign>(i))));
    _glyphs.resize(music.glyphCount());
    for (std::uint32_t i = 0; i < _glyphs.size(); ++i) {
        const auto id = static_cast<GlyphId>(i);
        Glyph &glyph = _glyphs[i];
        glyph.box = boxOf(music.box(id));
        glyph.advance = toSpaces(music.advance(id));
        const auto anchor = [&](GlyphAnchor kind) -> std::optional<Point> {
            const auto point = music.anchor(id, kind);
            return point ? std::optional<Point>({toSpaces(point->x), toSpaces(point->y)})
                         : std::nullopt;
        };
        glyph.stemUp = anchor(GlyphAnchor::StemUpSE).value_or(Point{glyph.box.right, 0});
        glyph.stemDown = anchor(GlyphAnchor::StemDownNW).value_or(Point{0, 0});
        const std::array<std::optional<Point>, 4> cuts = {
            anchor(GlyphAnchor::CutOutNW), anchor(GlyphAnchor::CutOutNE),
            anchor(GlyphAnchor::CutOutSE), anchor(GlyphAnchor::CutOutSW)};
        if (std::any_of(cuts.begin(), cuts.end(),
                        [](const std::optional<Point> &cut) { return cut.has_value(); }))
            glyph.parts = partsOf(glyph.box, cuts);
    }
}

std::optional<std::uint32_t> Fonts::glyph(char16_t codePoint) const
{
    const auto id = _music.find(static_cast<char32_t>(codePoint));
    return id ? std::optional<std::uint32_t>(static_cast<std::uint32_t>(*id)) : std::nullopt;
}

Box Fonts::textBox(const std::string &text, TextRole role) const
{
    const layout::TextExtent extent = _texts.measure(text, styleOf(role));
    const Box ink = boxOf(extent.ink);
    return {std::min(ink.left, 0.0), ink.top, std::max(toSpaces(extent.advance), ink.right),
            ink.bottom};
}

double Fonts::capHeight(TextRole role) const
{
    return toSpaces(_texts.capHeight(styleOf(role)));
}

} // namespace zarn::engraving
