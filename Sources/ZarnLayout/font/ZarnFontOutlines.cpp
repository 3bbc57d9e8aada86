// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <ZarnLayout/font/ShapedFont.h>

#include <QString>

#include <cmath>

namespace zarn::layout {

FontOutlines::FontOutlines(const QByteArray &file) : _font(std::make_unique<ShapedFont>(file)) { }

FontOutlines::~FontOutlines() = default;

std::unique_ptr<const FontOutlines> FontOutlines::read(const QByteArray &file)
{
    return std::unique_ptr<const FontOutlines>(new FontOutlines(file));
}

const FontOutlines &FontOutlines::music()
{
    static const FontOutlines font(builtInFontFile("bravura/bravura.otf"));
    return font;
}

const FontOutlines &FontOutlines::text(TextFace face)
{
    static const FontOutlines roman(builtInFontFile(fontFileOf(TextFace::Roman)));
    static const FontOutlines italic(builtInFontFile(fontFileOf(TextFace::Italic)));
    static const FontOutlines bold(builtInFontFile(fontFileOf(TextFace::Bold)));
    static const FontOutlines boldItalic(builtInFontFile(fontFileOf(TextFace::BoldItalic)));
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

std::optional<FontOutlines::GlyphSize> FontOutlines::musicSize(char32_t character) const
{
    if (!glyphOf(character))
        return std::nullopt;
    const ShapedFont::Extent extent =
        _font->measure(QString::fromUcs4(&character, 1).toStdString());
    const double scale = 4.0 * staffSpace / unitsPerEm();
    const auto length = [scale](hb_position_t value) {
        return static_cast<Unit>(std::lround(value * scale));
    };
    GlyphSize size;
    size.advance = length(extent.advance);
    if (extent.hasInk)
        size.ink = {length(extent.left), -length(extent.top), length(extent.right),
                    -length(extent.bottom)};
    return size;
}

std::optional<std::vector<SetGlyph>> FontOutlines::set(std::string_view text) const
{
    return _font->set(text);
}

} // namespace zarn::layout
