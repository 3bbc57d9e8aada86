// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <ZarnLayout/font/ShapedFont.h>

namespace zarn::layout {

FontOutlines::FontOutlines(std::string_view file)
    : _font(std::make_unique<ShapedFont>(builtInFontFile(file)))
{
}

FontOutlines::~FontOutlines() = default;

const FontOutlines &FontOutlines::music()
{
    static const FontOutlines font("bravura/bravura.otf");
    return font;
}

const FontOutlines &FontOutlines::text(TextFace face)
{
    static const FontOutlines roman(fontFileOf(TextFace::Roman));
    static const FontOutlines italic(fontFileOf(TextFace::Italic));
    static const FontOutlines bold(fontFileOf(TextFace::Bold));
    static const FontOutlines boldItalic(fontFileOf(TextFace::BoldItalic));
    switch (face) {
    case TextFace::Italic:
        return italic;
    case TextFace::Bold:
        return bold;
    case TextFace::BoldItalic:
        return boldItalic;
    case TextFace::Roman:
        break;
    }
    return roman;
}

int FontOutlines::unitsPerEm() const noexcept
{
    return _font->unitsPerEm();
}

std::optional<std::uint32_t> FontOutlines::glyphOf(char32_t character) const
{
    return _font->glyphOf(character);
}

GlyphOutline FontOutlines::outline(std::uint32_t glyph) const
{
    return _font->outline(glyph);
}

std::optional<std::vector<SetGlyph>> FontOutlines::set(std::string_view text) const
{
    return _font->set(text);
}

} // namespace zarn::layout
