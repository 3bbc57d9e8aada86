// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr TextStyle em{TextFace::Roman, 1000 * staffSpace}; // a font unit is a staff space

TEST(TextMeasureTest, textsAreAsWideAsTheFontSetsThem)
{
    const TextMeasure &measure = builtInTextMeasure();
    const auto a = measure.measure("A", em);
    const auto v = measure.measure("V", em);
    const auto both = measure.measure("AV", em);
    EXPECT_LT(both.advance, a.advance + v.advance) << "the pair is not kerned";
    EXPECT_GT(both.advance, (a.advance + v.advance) * 3 / 4);
    EXPECT_TRUE(both.isExact);
    EXPECT_EQ(measure.capHeight(em), -measure.measure("H", em).ink.top);
    EXPECT_GT(measure.measure("p", em).ink.bottom, 100 * staffSpace);

    // Half the size, half the room; other faces differ.
    EXPECT_NEAR(measure.measure("Allegro", {TextFace::Roman, em.size / 2}).advance * 2,
                measure.measure("Allegro", em).advance, 2);
    EXPECT_NE(measure.measure("Allegro", {TextFace::Bold, em.size}).advance,
              measure.measure("Allegro", em).advance);
}

TEST(TextMeasureTest, whatTheFontLacksIsEstimated)
{
    const TextMeasure &measure = builtInTextMeasure();
    EXPECT_EQ(measure.measure("", em), TextExtent());
    EXPECT_EQ(measure.measure(" ", em).ink, Box());
    EXPECT_GT(measure.measure(" ", em).advance, 0);

    const auto kanji = measure.measure("日本", em);
    EXPECT_FALSE(kanji.isExact);
    EXPECT_EQ(kanji.advance, 2 * em.size);
    EXPECT_FALSE(measure.measure("שלום", em).isExact);
    EXPECT_GT(measure.measure("\xFF\xFE no UTF-8 \xE6", em).advance, 0);
    EXPECT_EQ(measure.measure("\xF0\x9F\x98\x80", em).advance, em.size);
}

} // namespace
