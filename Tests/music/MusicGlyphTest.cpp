// SPDX-License-Identifier: MIT
#include <ZarnCore/music/MusicGlyphTable.h>
#include <ZarnCore/music/ZarnMusicGlyph.h>

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

namespace {

using zarn::MusicGlyph;
using zarn::NoteHead;

MusicGlyph named(const char *name)
{
    return MusicGlyph::fromName(name).value();
}

TEST(MusicGlyph, namesLeadToTheirCodePointsAndBack)
{
    for (const auto &row : zarn::detail::musicGlyphs) {
        const auto glyph = MusicGlyph::fromName(row.name);
        ASSERT_TRUE(glyph) << row.name;
        EXPECT_EQ(glyph->codePoint(), row.codePoint);
        EXPECT_EQ(glyph->name(), row.name);
    }
    EXPECT_EQ(named("noteheadBlack"), zarn::normalNotehead);
    EXPECT_EQ(named("pictChokeCymbal").codePoint(), 0xE805);
    EXPECT_FALSE(MusicGlyph::fromName("NoteheadBlack"));
    EXPECT_FALSE(MusicGlyph::fromName(""));
    EXPECT_TRUE(MusicGlyph().isNone());
    EXPECT_EQ(MusicGlyph().name(), "");
    EXPECT_EQ(MusicGlyph(0xE0FF).name(), "") << "a gap in the table";
}

TEST(MusicGlyph, everyNameStandsInTheListOfTheFont)
{
    std::ifstream file(ZARN_SOURCE_DIR "/../shared/facts/smufl_glyphs.txt");
    if (!file)
        GTEST_SKIP() << "the list of glyph names is not here";
    std::set<std::string> names;
    for (std::string line; std::getline(file, line);)
        names.insert(line);
    for (const auto &row : zarn::detail::musicGlyphs)
        EXPECT_EQ(names.count(std::string(row.name)), 1u) << row.name;
}

TEST(MusicGlyph, headsOfAnyLengthAreOfTheirKind)
{
    for (const char *name : {"noteheadXBlack", "noteheadXHalf", "noteheadXWhole", "noteheadHeavyX",
                             "noteheadHeavyXHat", "noteheadPlusBlack", "noteheadVoidWithX"})
        EXPECT_EQ(named(name).noteHead(), NoteHead::Cross) << name;
    for (const char *name : {"noteheadBlack", "noteheadHalf", "noteheadDoubleWhole",
                             "noteheadCircledBlack", "pictSnareDrum", "articAccentAbove"})
        EXPECT_EQ(named(name).noteHead(), NoteHead::Normal) << name;
    EXPECT_EQ(named("noteheadCircleX").noteHead(), NoteHead::CircleX);
    EXPECT_EQ(named("noteheadDiamondWhite").noteHead(), NoteHead::Diamond);
    EXPECT_EQ(named("noteheadTriangleUpBlack").noteHead(), NoteHead::Triangle);
    EXPECT_EQ(named("noteheadTriangleDownHalf").noteHead(), NoteHead::InvertedTriangle);
    EXPECT_EQ(named("noteheadSlashedBlack1").noteHead(), NoteHead::Slashed);
    EXPECT_EQ(named("noteheadSlashedHalf2").noteHead(), NoteHead::BackSlashed);
    EXPECT_EQ(named("noteheadSlashHorizontalEnds").noteHead(), NoteHead::Slash);
    EXPECT_EQ(named("noteheadNull").noteHead(), NoteHead::None);
    EXPECT_EQ(MusicGlyph().noteHead(), NoteHead::Normal);
}

} // namespace
