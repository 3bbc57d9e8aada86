// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/MusicFontReader.h>

#include <ZarnCore/utils/EnumTable.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <QString>

#include <cstdlib>
#include <limits>
#include <utility>

namespace zarn::layout {
namespace {

constexpr auto function = "zarn::layout::MusicFont::parse";

constexpr auto anchorTexts =
    utils::enumTable<GlyphAnchor>(utils::KeyMatch::Exact,
                                  {
                                      {GlyphAnchor::StemUpSE, "stemUpSE"},
                                      {GlyphAnchor::StemDownNW, "stemDownNW"},
                                      {GlyphAnchor::StemUpNW, "stemUpNW"},
                                      {GlyphAnchor::StemDownSW, "stemDownSW"},
                                      {GlyphAnchor::SplitStemUpSE, "splitStemUpSE"},
                                      {GlyphAnchor::SplitStemUpSW, "splitStemUpSW"},
                                      {GlyphAnchor::SplitStemDownNE, "splitStemDownNE"},
                                      {GlyphAnchor::SplitStemDownNW, "splitStemDownNW"},
                                      {GlyphAnchor::CutOutNE, "cutOutNE"},
                                      {GlyphAnchor::CutOutSE, "cutOutSE"},
                                      {GlyphAnchor::CutOutSW, "cutOutSW"},
                                      {GlyphAnchor::CutOutNW, "cutOutNW"},
                                      {GlyphAnchor::GraceNoteSlashNE, "graceNoteSlashNE"},
                                      {GlyphAnchor::GraceNoteSlashNW, "graceNoteSlashNW"},
                                      {GlyphAnchor::GraceNoteSlashSE, "graceNoteSlashSE"},
                                      {GlyphAnchor::GraceNoteSlashSW, "graceNoteSlashSW"},
                                      {GlyphAnchor::NumeralBottom, "numeralBottom"},
                                      {GlyphAnchor::RepeatOffset, "repeatOffset"},
                                      {GlyphAnchor::NoteheadOrigin, "noteheadOrigin"},
                                      {GlyphAnchor::OpticalCenter, "opticalCenter"},
                                  });
static_assert(anchorTexts.isConsistent());

struct DefaultRow {
    const char *name;
    Unit EngravingDefaults::*member;
};

constexpr DefaultRow defaultRows[] = {
    {"arrowShaftThickness", &EngravingDefaults::arrowShaftThickness},
    {"barlineSeparation", &EngravingDefaults::barlineSeparation},
    {"beamSpacing", &EngravingDefaults::beamSpacing},
    {"beamThickness", &EngravingDefaults::beamThickness},
    {"bracketThickness", &EngravingDefaults::bracketThickness},
    {"dashedBarlineDashLength", &EngravingDefaults::dashedBarlineDashLength},
    {"dashedBarlineGapLength", &EngravingDefaults::dashedBarlineGapLength},
    {"dashedBarlineThickness", &EngravingDefaults::dashedBarlineThickness},
    {"hBarThickness", &EngravingDefaults::hBarThickness},
    {"hairpinThickness", &EngravingDefaults::hairpinThickness},
    {"legerLineExtension", &EngravingDefaults::legerLineExtension},
    {"legerLineThickness", &EngravingDefaults::legerLineThickness},
    {"lyricLineThickness", &EngravingDefaults::lyricLineThickness},
    {"octaveLineThickness", &EngravingDefaults::octaveLineThickness},
    {"pedalLineThickness", &EngravingDefaults::pedalLineThickness},
    {"repeatBarlineDotSeparation", &EngravingDefaults::repeatBarlineDotSeparation},
    {"repeatEndingLineThickness", &EngravingDefaults::repeatEndingLineThickness},
    {"slurEndpointThickness", &EngravingDefaults::slurEndpointThickness},
    {"slurMidpointThickness", &EngravingDefaults::slurMidpointThickness},
    {"staffLineThickness", &EngravingDefaults::staffLineThickness},
    {"stemThickness", &EngravingDefaults::stemThickness},
    {"subBracketThickness", &EngravingDefaults::subBracketThickness},
    {"textEnclosureThickness", &EngravingDefaults::textEnclosureThickness},
    {"thickBarlineThickness", &EngravingDefaults::thickBarlineThickness},
    {"thinBarlineThickness", &EngravingDefaults::thinBarlineThickness},
    {"tieEndpointThickness", &EngravingDefaults::tieEndpointThickness},
    {"tieMidpointThickness", &EngravingDefaults::tieMidpointThickness},
    {"tupletBracketThickness", &EngravingDefaults::tupletBracketThickness},
};

[[noreturn]] void raise(const std::string &place, const std::string &reason)
{
    throw utils::JsonError(place, reason, function);
}

/// Longer than any glyph or text that can be drawn.
constexpr double farAway = 10000;

Unit lengthOf(const rapidjson::Value &value, const std::string &place)
{
    if (!value.IsNumber())
        raise(place, "is no number");
    const double spaces = value.GetDouble();
    if (!(spaces >= -farAway && spaces <= farAway))
        raise(place, "is no length that can be drawn");
    return fromSpaces(spaces);
}

/// SMuFL's y grows upwards.
Point pointOf(const rapidjson::Value &value, const std::string &place)
{
    if (!value.IsArray() || value.Size() != 2)
        raise(place, "is no pair of coordinates");
    return {lengthOf(value[0], place), -lengthOf(value[1], place)};
}

const rapidjson::Value *objectIn(const rapidjson::Value &metadata, const char *name)
{
    const auto *member = utils::JsonMembers(metadata, function).find(name);
    if (member != nullptr && !member->IsObject())
        raise(name, "is no object");
    return member;
}

} // namespace

void MusicFont::Reader::read(const rapidjson::Value &metadata, const rapidjson::Value &glyphNames)
{
    const utils::JsonMembers members(metadata, function);
    _font._fontName = members.text("fontName");
    if (const auto *version = members.find("fontVersion"); version && version->IsString())
        _font._version.assign(version->GetString(), version->GetStringLength());
    else if (version && version->IsNumber())
        _font._version = QString::number(version->GetDouble()).toStdString();
    if (const auto *defaults = objectIn(metadata, "engravingDefaults"))
        readDefaults(*defaults);

    if (!glyphNames.IsObject())
        raise("glyphnames", "is no object");
    readCodePoints(glyphNames, "glyphnames");
    for (const char *own : {"optionalGlyphs", "ligatures"})
        if (const auto *glyphs = objectIn(metadata, own))
            readCodePoints(*glyphs, own);

    const auto *boxes = objectIn(metadata, "glyphBBoxes");
    if (boxes == nullptr)
        members.raise("has no member \"glyphBBoxes\"");
    readGlyphs(*boxes, objectIn(metadata, "glyphAdvanceWidths"));
    if (const auto *anchors = objectIn(metadata, "glyphsWithAnchors"))
        readAnchors(*anchors);
}

void MusicFont::Reader::readDefaults(const rapidjson::Value &defaults)
{
    const utils::JsonMembers members(defaults, function);
    for (const DefaultRow &row : defaultRows)
        if (const auto *value = members.find(row.name))
            _font._defaults.*row.member =
                lengthOf(*value, std::string("engravingDefaults.") + row.name);
}

void MusicFont::Reader::readCodePoints(const rapidjson::Value &names, const char *what)
{
    for (const auto &member : names.GetObject()) {
        const std::string name(member.name.GetString(), member.name.GetStringLength());
        const std::string place = std::string(what) + '.' + name;
        if (!member.value.IsObject())
            raise(place, "is no object");
        const std::string text(utils::JsonMembers(member.value, function).text("codepoint"));
        char *end = nullptr;
        const unsigned long codePoint =
            text.rfind("U+", 0) == 0 ? std::strtoul(text.c_str() + 2, &end, 16) : 0;
        if (codePoint == 0 || codePoint > 0x10FFFF || *end != '\0')
            raise(place + ".codepoint", "is no code point: \"" + text + '"');
        _codePoints.emplace(name, static_cast<char32_t>(codePoint));
    }
}

void MusicFont::Reader::readGlyphs(const rapidjson::Value &boxes, const rapidjson::Value *advances)
{
    for (const auto &member : boxes.GetObject()) {
        Glyph glyph;
        glyph.name.assign(member.name.GetString(), member.name.GetStringLength());
        const auto known = _codePoints.find(glyph.name);
        if (known == _codePoints.end())
            continue;
        const std::string place = "glyphBBoxes." + glyph.name;
        const utils::JsonMembers corners(member.value, function);
        const auto *northEast = corners.find("bBoxNE");
        const auto *southWest = corners.find("bBoxSW");
        if (northEast == nullptr || southWest == nullptr)
            raise(place, "lacks a corner");
        const Point high = pointOf(*northEast, place + ".bBoxNE");
        const Point low = pointOf(*southWest, place + ".bBoxSW");
        glyph.codePoint = known->second;
        glyph.box = {low.x, high.y, high.x, low.y};
        glyph.advance = high.x;
        if (advances != nullptr)
            if (const auto *advance =
                    utils::JsonMembers(*advances, function).find(glyph.name.c_str()))
                glyph.advance = lengthOf(*advance, "glyphAdvanceWidths." + glyph.name);
        if (_font._glyphs.size() > std::numeric_limits<std::uint16_t>::max())
            raise("glyphBBoxes", "has more glyphs than a font can");
        const auto id = static_cast<GlyphId>(_font._glyphs.size());
        if (!_font._byName.emplace(glyph.name, id).second)
            raise(place, "stands there twice");
        _font._byCodePoint.emplace(glyph.codePoint, id);
        _font._glyphs.push_back(std::move(glyph));
    }
}

void MusicFont::Reader::readAnchors(const rapidjson::Value &anchors)
{
    for (const auto &member : anchors.GetObject()) {
        const std::string name(member.name.GetString(), member.name.GetStringLength());
        const auto found = _font._byName.find(name);
        if (found == _font._byName.end())
            continue;
        if (!member.value.IsObject())
            raise("glyphsWithAnchors." + name, "is no object");
        Glyph &glyph = _font._glyphs[static_cast<std::size_t>(found->second)];
        glyph.firstAnchor = static_cast<std::uint32_t>(_font._anchors.size());
        for (const auto &anchor : member.value.GetObject()) {
            const std::string_view kind(anchor.name.GetString(), anchor.name.GetStringLength());
            if (const auto known = anchorTexts.value(kind))
                _font._anchors.push_back(
                    {*known,
                     pointOf(anchor.value, "glyphsWithAnchors." + name + '.' + std::string(kind))});
        }
        glyph.anchorCount = static_cast<std::uint32_t>(_font._anchors.size()) - glyph.firstAnchor;
    }
}

} // namespace zarn::layout
