// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnMusicFont.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/JsonDocument.h>
#include <ZarnCore/utils/JsonMembers.h>
#include <ZarnLayout/font/MusicFontReader.h>
#include <ZarnLayout/font/ZarnFontFace.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>

#include <QByteArray>

#include <atomic>
#include <utility>

namespace zarn::layout {

namespace {

std::uint64_t nextSerialNumber()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

std::string_view textOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// From here on SMuFL leaves the code points to each font.
constexpr char32_t firstOwnCodePoint = 0xF400;

} // namespace

MusicFont::MusicFont() : _serialNumber(nextSerialNumber()) { }
MusicFont::~MusicFont() = default;

const std::shared_ptr<const MusicFont> &MusicFont::builtIn()
{
    static const std::shared_ptr<const MusicFont> font = [] {
        const QByteArray metadata = builtInFontFile("bravura/metadata.json");
        const QByteArray names = builtInFontFile("smufl/glyphnames.json");
        return read(textOf(metadata), textOf(names), "Bravura", utils::JsonSource::Build);
    }();
    return font;
}

std::shared_ptr<const MusicFont>
MusicFont::parse(std::string_view metadata, std::string_view glyphNames, const std::string &name)
{
    return read(metadata, glyphNames, name, utils::JsonSource::Outside);
}

std::shared_ptr<const MusicFont> MusicFont::open(const QByteArray &file, std::string_view metadata,
                                                 const std::string &name)
{
    auto outlines = FontOutlines::read(file);
    std::shared_ptr<MusicFont> font;
    if (metadata.empty()) {
        font.reset(new MusicFont);
        font->_fontName = name;
        font->_hasMetadata = false;
    } else {
        font = read(metadata, textOf(builtInFontFile("smufl/glyphnames.json")), name,
                    utils::JsonSource::Outside);
    }
    font->_outlines = std::move(outlines);
    if (!font->_hasMetadata)
        font->measureGlyphs();
    font->borrowGlyphs();
    return font;
}

void MusicFont::add(Glyph glyph)
{
    const auto id = static_cast<GlyphId>(_glyphs.size());
    _byName.emplace(glyph.name, id);
    _byCodePoint.emplace(glyph.codePoint, id);
    _glyphs.push_back(std::move(glyph));
}

void MusicFont::measureGlyphs()
{
    for (const Glyph &known : builtIn()->_glyphs) {
        const auto size = known.codePoint < firstOwnCodePoint
            ? _outlines->musicSize(known.codePoint)
            : std::nullopt;
        if (!size)
            continue;
        Glyph glyph;
        glyph.name = known.name;
        glyph.codePoint = known.codePoint;
        glyph.box = size->ink;
        glyph.advance = size->advance;
        add(std::move(glyph));
    }
}

void MusicFont::borrowGlyphs()
{
    const MusicFont &lender = *builtIn();
    for (const Glyph &lent : lender._glyphs) {
        const auto own = find(lent.name);
        if (own && _outlines->glyphOf(at(*own).codePoint))
            continue;
        Glyph glyph = lent;
        glyph.isBorrowed = true;
        glyph.firstAnchor = static_cast<std::uint32_t>(_anchors.size());
        for (std::uint32_t i = 0; i < lent.anchorCount; ++i)
            _anchors.push_back(lender._anchors[lent.firstAnchor + i]);
        _hasBorrowedGlyphs = true;
        if (own)
            _glyphs[static_cast<std::size_t>(*own)] = std::move(glyph);
        else
            add(std::move(glyph));
    }
}

const FontOutlines &MusicFont::outlines(GlyphId glyph) const
{
    return _outlines && !at(glyph).isBorrowed ? *_outlines : FontOutlines::music();
}

std::shared_ptr<MusicFont> MusicFont::read(std::string_view metadata, std::string_view glyphNames,
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
