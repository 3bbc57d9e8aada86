// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnMusicFont.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/JsonDocument.h>
#include <ZarnCore/utils/JsonMembers.h>
#include <ZarnLayout/font/MusicFontReader.h>
#include <ZarnLayout/font/ZarnFontFace.h>

namespace zarn::layout {

MusicFont::MusicFont() = default;
MusicFont::~MusicFont() = default;

const std::shared_ptr<const MusicFont> &MusicFont::builtIn()
{
    static const std::shared_ptr<const MusicFont> font = [] {
        const QByteArray metadata = builtInFontFile("bravura/metadata.json");
        const QByteArray names = builtInFontFile("smufl/glyphnames.json");
        return read({metadata.constData(), static_cast<std::size_t>(metadata.size())},
                    {names.constData(), static_cast<std::size_t>(names.size())}, "Bravura",
                    utils::JsonSource::Build);
    }();
    return font;
}

std::shared_ptr<const MusicFont>
MusicFont::parse(std::string_view metadata, std::string_view glyphNames, const std::string &name)
{
    return read(metadata, glyphNames, name, utils::JsonSource::Outside);
}

std::shared_ptr<const MusicFont> MusicFont::read(std::string_view metadata,
                                                 std::string_view glyphNames,
                                                 const std::string &name, utils::JsonSource source)
{
    const auto document = utils::jsonDocument(metadata, name, source);
    const auto names = utils::jsonDocument(glyphNames, "glyphnames.json", source);
    const std::shared_ptr<MusicFont> font(new MusicFont);
    try {
        Reader(*font).read(document, names);
    } catch (const utils::JsonError &error) {
        throw error.within(name);
    }
    return font;
}

std::optional<GlyphId> MusicFont::find(std::string_view name) const
{
    const auto found = _byName.find(std::string(name));
    return found == _byName.end() ? std::nullopt : std::optional<GlyphId>(found->second);
}

std::optional<GlyphId> MusicFont::find(char32_t codePoint) const
{
    const auto found = _byCodePoint.find(codePoint);
    return found == _byCodePoint.end() ? std::nullopt : std::optional<GlyphId>(found->second);
}

GlyphId MusicFont::glyph(std::string_view name) const
{
    const auto found = find(name);
    if (!found)
        ZARN_RAISE_IN("zarn::layout::MusicFont::glyph",
                      _fontName + " has no glyph \"" + std::string(name) + '"');
    return *found;
}

std::optional<Point> MusicFont::anchor(GlyphId glyph, GlyphAnchor anchor) const
{
    const Glyph &owner = at(glyph);
    for (std::uint32_t i = 0; i < owner.anchorCount; ++i)
        if (_anchors[owner.firstAnchor + i].kind == anchor)
            return _anchors[owner.firstAnchor + i].at;
    return std::nullopt;
}

const MusicFont::Glyph &MusicFont::at(GlyphId glyph) const
{
    const auto index = static_cast<std::size_t>(glyph);
    ZARN_ASSERT_IN("zarn::layout::MusicFont::at", index < _glyphs.size());
    return _glyphs[index];
}

} // namespace zarn::layout
