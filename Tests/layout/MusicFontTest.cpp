// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnLayout/draw/ZarnPolygons.h>
#include <ZarnLayout/font/ZarnFontFace.h>
#include <ZarnLayout/font/ZarnFontOutlines.h>
#include <ZarnLayout/font/ZarnMusicFont.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::layout;

TEST(MusicFontTest, theBuiltInFontHasWhatEngraversKnowOfIt)
{
    const MusicFont &font = *MusicFont::builtIn();
    EXPECT_EQ(font.fontName(), "Bravura");
    EXPECT_EQ(font.version(), "1.392");
    EXPECT_EQ(font.defaults().staffLineThickness, fromSpaces(0.13));

    const GlyphId head = font.glyph("noteheadBlack");
    EXPECT_EQ(font.codePoint(head), U'\uE0A4');
    EXPECT_EQ(font.find(U'\uE0A4'), head);
    EXPECT_EQ(font.advance(head), fromSpaces(1.18));
    EXPECT_EQ(font.box(head), (Box{0, -fromSpaces(0.5), fromSpaces(1.18), fromSpaces(0.5)}));
    EXPECT_EQ(font.anchor(head, GlyphAnchor::StemUpSE),
              (Point{fromSpaces(1.18), -fromSpaces(0.168)}));
    EXPECT_FALSE(font.anchor(head, GlyphAnchor::RepeatOffset));

    // A clef stands on its line: most of it above.
    const Box &clef = font.box(font.glyph("gClef"));
    EXPECT_LT(clef.top, -4 * staffSpace);
    EXPECT_GT(clef.bottom, 2 * staffSpace);
    // Stylistic alternates come from the font's own list.
    EXPECT_TRUE(font.find("6stringTabClefTall"));
    EXPECT_FALSE(font.find("noteheadUnheardOf"));
    EXPECT_THROW(font.glyph("noteheadUnheardOf"), CoreException);
}

std::string refusal(const std::string &metadata,
                    const std::string &names = R"({"a": {"codepoint": "U+E000"}})")
{
    try {
        MusicFont::parse(metadata, names, "x.json");
    } catch (const CoreException &problem) {
        return problem.message();
    }
    return "accepted";
}

TEST(MusicFontTest, brokenMetadataAreRefusedWithTheirPlace)
{
    const std::string corners = R"({"bBoxNE": [1, 1], "bBoxSW": [0, 0]})";
    const std::string head = R"({"fontName": "X", )";
    EXPECT_EQ(refusal(head + R"("glyphBBoxes": {"a": )" + corners + "}}"), "accepted");
    for (const auto &[text, expected] : std::vector<std::pair<std::string, std::string>>{
             {"{", "x.json:1:2: "},
             {"[]", "x.json: "},
             {R"({"glyphBBoxes": {}})", "fontName"},
             {head + R"("a": 1})", "glyphBBoxes"},
             {head + R"("glyphBBoxes": []})", "x.json.glyphBBoxes"},
             {head + R"("glyphBBoxes": {"a": {"bBoxNE": [1, 1]}}})",
              "glyphBBoxes.a: lacks a corner"},
             {head + R"("glyphBBoxes": {"a": {"bBoxNE": [1], "bBoxSW": [0, 0]}}})", "a.bBoxNE"},
             {head + R"("glyphBBoxes": {"a": {"bBoxNE": [1e99, 1], "bBoxSW": [0, 0]}}})",
              "a.bBoxNE: is no length"},
             {head + R"("glyphBBoxes": {"a": )" + corners + R"(, "a": )" + corners + "}}",
              "glyphBBoxes.a: stands there twice"},
             {head + R"("engravingDefaults": {"stemThickness": "thin"}})",
              "engravingDefaults.stemThickness: is no number"},
             {head + R"("optionalGlyphs": {"b": {"codepoint": "E000"}}})",
              "optionalGlyphs.b.codepoint: is no code point"},
             {head + R"("glyphBBoxes": {"a": )" + corners
                  + R"(}, "glyphsWithAnchors": {"a": {"stemUpSE": 3}}})",
              "glyphsWithAnchors.a.stemUpSE: is no pair"},
         })
        EXPECT_NE(refusal(text).find(expected), std::string::npos)
            << text << " said: " << refusal(text);
}

TEST(MusicFontTest, metadataAndOutlinesAreOfOneFont)
{
    // A wrong code point would draw another glyph than the one that was measured.
    const MusicFont &font = *MusicFont::builtIn();
    EXPECT_GT(font.glyphCount(), 2500u);
    for (std::size_t i = 0; i < font.glyphCount(); ++i) {
        const auto glyph = static_cast<GlyphId>(i);
        constexpr Unit far = 1 << 20;
        Box ink{far, far, -far, -far};
        for (const Polygon &polygon : polygonsOf(font, glyph, 24)) {
            for (const Point &point : polygon) {
                ink = {std::min(ink.left, point.x), std::min(ink.top, point.y),
                       std::max(ink.right, point.x), std::max(ink.bottom, point.y)};
            }
        }
        const Box &box = font.box(glyph);
        const bool isEqual = std::abs(ink.left - box.left) < 16 && std::abs(ink.top - box.top) < 16
            && std::abs(ink.right - box.right) < 16 && std::abs(ink.bottom - box.bottom) < 16;
        EXPECT_TRUE(isEqual) << font.name(glyph) << ": " << box.left << ' ' << box.top << ' '
                             << box.right << ' ' << box.bottom << ", drawn " << ink.left << ' '
                             << ink.top << ' ' << ink.right << ' ' << ink.bottom;
    }
}

/// A font of one's own that lacks signs, or whose makers gave no sizes.
TEST(MusicFontTest, whatAFontLacksIsBorrowedAndTold)
{
    const QByteArray file = builtInFontFile("bravura/bravura.otf");
    std::string metadata = builtInFontFile("bravura/metadata.json").toStdString();
    for (std::size_t at; (at = metadata.find("\"gClef\"")) != std::string::npos;)
        metadata.replace(at, 7, "\"gCleft\"");
    const auto font = MusicFont::open(file, metadata, "own.json");
    const MusicFont &builtIn = *MusicFont::builtIn();
    const GlyphId clef = font->glyph("gClef");
    EXPECT_TRUE(font->isBorrowed(clef));
    EXPECT_FALSE(font->isBorrowed(font->glyph("noteheadBlack")));
    EXPECT_EQ(font->box(clef), builtIn.box(builtIn.glyph("gClef")));
    EXPECT_EQ(&font->outlines(clef), &FontOutlines::music());
    EXPECT_NE(&font->outlines(font->glyph("noteheadBlack")), &FontOutlines::music());

    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::violin);
    model.insertEmptyBarColumns(0, 2);
    const auto told = layOut(model, {}, font, builtInTextMeasure())->problems();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].message,
              "The music font has no glyph \"gClef\"; the built-in font's is drawn.");
    EXPECT_EQ(told[0].place.track, 0);
    EXPECT_EQ(told[0].place.bar, 0);

    const auto bare = MusicFont::open(file, {}, "bare.otf");
    EXPECT_FALSE(bare->hasMetadata());
    for (const char *name : {"noteheadBlack", "gClef", "flag8thUp", "accidentalSharp"}) {
        const Box &measured = bare->box(bare->glyph(name));
        const Box &known = builtIn.box(builtIn.glyph(name));
        EXPECT_NEAR(measured.left, known.left, 16) << name;
        EXPECT_NEAR(measured.top, known.top, 16) << name;
        EXPECT_NEAR(measured.right, known.right, 16) << name;
        EXPECT_NEAR(measured.bottom, known.bottom, 16) << name;
    }
    const auto lack = layOut(model, {}, bare, builtInTextMeasure())->problems();
    ASSERT_FALSE(lack.empty());
    EXPECT_NE(lack[0].message.find("no metadata"), std::string::npos);
    EXPECT_THROW(MusicFont::open("no font", {}, "x"), CoreException);
}

TEST(FontFilesTest, theCarriedFilesAreThoseOfTheirMakers)
{
    QFile readme(QStringLiteral(ZARN_SOURCE_DIR "/Resources/fonts/README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    const QRegularExpression row(QStringLiteral("^([0-9a-f]{64})  (\\S+)$"),
                                 QRegularExpression::MultilineOption);
    auto rows = row.globalMatch(QString::fromUtf8(readme.readAll()));
    int count = 0;
    while (rows.hasNext()) {
        const auto match = rows.next();
        const QString path = match.captured(2);
        QByteArray content;
        if (path.endsWith(QStringLiteral(".txt"))) {
            QFile file(QStringLiteral(ZARN_SOURCE_DIR "/Resources/fonts/") + path);
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            content = file.readAll();
        } else {
            content = builtInFontFile(path.toStdString());
        }
        EXPECT_EQ(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex(),
                  match.captured(1).toLatin1())
            << path.toStdString();
        ++count;
    }
    EXPECT_EQ(count, 8);
    EXPECT_THROW(builtInFontFile("bravura/none.otf"), CoreException);
}

} // namespace
