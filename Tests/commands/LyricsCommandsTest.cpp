// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/lyrics/ZarnLyricLine.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace zarn;

TEST(LyricTextTest, readsWhatIsTyped)
{
    const auto S = Syllabic::Single;
    const struct {
        const char *text;
        LyricSyllables syllables;
    } rows[] = {
        {"", {}},
        {"one two", {{"one", S}, {"two", S}}},
        {"glo-ri-a", {{"glo", Syllabic::Begin}, {"ri", Syllabic::Middle}, {"a", Syllabic::End}}},
        {"la__ be", {{"la", S, true, 3}, {"be", S}}},
        {"la _ _ be", {{"la", S, false, 3}, {"be", S}}},
        {"glo--ri_-a",
         {{"glo", Syllabic::Begin, false, 2},
          {"ri", Syllabic::Middle, true, 2},
          {"a", Syllabic::End}}},
        {"_ _ la", {{"", S, false, 2}, {"la", S}}},
        {"-ri-a", {{"ri", Syllabic::Middle}, {"a", Syllabic::End}}},
        {"glo-", {{"glo", Syllabic::Begin}}},
        {"o~my rock\\-a\\_b\\ c\\\\", {{"o~my", S}, {"rock-a_b c\\", S}}},
        {"\xC3\xA9-t\xC3\xA9", {{"\xC3\xA9", Syllabic::Begin}, {"t\xC3\xA9", Syllabic::End}}},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(lyricsFromText(row.text), row.syllables) << row.text;
        EXPECT_EQ(lyricsToText(row.syllables), row.text);
    }
    EXPECT_EQ(lyricsFromText("glo - ri -\n a"), lyricsFromText("glo-ri-a"));
}

/// The notes of the guitar that are sung: in the first bar the first three beats with notes, in
/// each other bar the second and the last one, since the first holds a tie.
struct LyricsCommandsTest : testing::Test, SmallScore {
    /// "bar:beat syllable" of all beats of a line.
    std::string sung(unsigned line = 0)
    {
        std::string all;
        for (const auto &bar : model.track(0)->bars())
            for (const auto &voice : bar->voices())
                for (unsigned i = 0; voice && i < voice->beatCount(); ++i)
                    for (const Syllable &syllable : voice->beats()[i]->lyrics())
                        if (syllable.line == line)
                            all += std::to_string(bar->index()) + ":" + std::to_string(i) + " "
                                + syllable.toString() + " ";
        return all;
    }
    const std::string &waiting(unsigned line = 0) { return model.track(0)->lyricsLeftOver()[line]; }
    bool set(const char *text, unsigned bar, unsigned line = 0)
    {
        return score.setLyrics(0, line, QString::fromUtf8(text), bar);
    }
};

TEST_F(LyricsCommandsTest, syllablesGoToNotesThatAreStruck)
{
    beat(1, 1).setGraceType(GraceType::OnBeat);
    model.track(0)->bar(2)->setSimileMark(SimileMark::Simple);
    ASSERT_TRUE(set("a-b c_ d e", 0));
    EXPECT_EQ(sung(), "0:0 a- 0:1 b 0:3 c_ 3:1 d 3:3 e ");
    EXPECT_EQ(waiting(), "");
}

TEST_F(LyricsCommandsTest, whatStandsInFrontAndInOtherLinesStays)
{
    ASSERT_TRUE(set("a b c d e f", 0));
    ASSERT_TRUE(set("x", 0, 1));
    expectUndoable(score, [this] { return set("g", 1); });
    ASSERT_TRUE(set("g", 1));
    EXPECT_EQ(sung(), "0:0 a 0:1 b 0:3 c 1:1 g ");
    ASSERT_TRUE(set("", 0));
    EXPECT_EQ(sung(), "");
    EXPECT_EQ(sung(1), "0:0 x ");
}

/// The voice that sings the line keeps it, although notes come to a lower one.
TEST_F(LyricsCommandsTest, theVoiceThatSingsKeepsItsLine)
{
    auto &bar = *model.track(0)->bar(5);
    addBeat(*bar.ensureVoice(1), {5});
    bar.voice(1)->beat(0)->setLyrics({{2, Syllabic::Single, false, "low"}});
    ASSERT_TRUE(set("high", 5, 2));
    EXPECT_EQ(sung(2), "5:0 high ");
    EXPECT_TRUE(model.track(0)->bar(0)->voice(0)->beat(0)->lyrics().empty());
}

TEST_F(LyricsCommandsTest, textWithoutNotesWaitsForThem)
{
    expectUndoable(score, [this] { return set("a b__ c-d e", 4); });
    ASSERT_TRUE(set("a b__ c-d e", 4));
    EXPECT_EQ(sung(), "4:1 a 4:3 b_ ");
    EXPECT_EQ(waiting(), "_ _ c-d e");
    for (int i = 0; i < 4; ++i)
        addBeat(*model.track(0)->bar(5)->ensureVoice(0), {4});
    expectUndoable(score, [this] { return score.setLyricsOffset(0, 0, 4); });
    ASSERT_TRUE(score.setLyricsOffset(0, 0, 4));
    EXPECT_EQ(sung(), "4:1 a 4:3 b_ 5:2 c- 5:3 d ");
    EXPECT_EQ(waiting(), "e");
    ASSERT_TRUE(score.setLyricsOffset(0, 0, 0));
    EXPECT_EQ(sung(), "0:0 a 0:1 b_ 1:3 c- 2:1 d 2:3 e ");
    EXPECT_EQ(waiting(), "");
}

/// From a bar without notes on, the text waits for the notes of that bar, not for those before.
TEST_F(LyricsCommandsTest, textWaitsForTheNotesOfItsBar)
{
    ASSERT_TRUE(set("a", 4));
    ASSERT_TRUE(set("b c", 5));
    addBeat(*model.track(0)->bar(5)->ensureVoice(0), {4});
    ASSERT_TRUE(score.setLyricsOffset(0, 0, 4));
    EXPECT_EQ(sung(), "4:1 a 5:0 b ");
    EXPECT_EQ(waiting(), "c");
}

TEST_F(LyricsCommandsTest, aLineLaidOutWhereItStandsIsTheSame)
{
    ASSERT_TRUE(set("_ a-b_ c _ d", 0));
    const std::string before = sung();
    ASSERT_TRUE(score.setLyricsOffset(0, 0, 0));
    EXPECT_EQ(lyricsToText(LyricLine(*model.track(0), 0).syllables()), "a-b_ c _ d");
    ASSERT_TRUE(score.setLyricsOffset(0, 0, 1));
    EXPECT_EQ(lyricsToText(LyricLine(*model.track(0), 0).syllables()), "a-b_ c _ d");
    ASSERT_TRUE(set("_ a-b_ c _ d", 0));
    EXPECT_EQ(sung(), before);
}

// The bar that goes has nothing of the line: what meets is around it.
TEST_F(LyricsCommandsTest, aSyllableIsNotHeldOverWhatCameToFollowIt)
{
    const auto piano = model.track(1);
    Syllable held;
    held.text = "mile,";
    held.hasMelisma = true;
    Syllable next;
    next.text = "seen";
    piano->bar(1)->voice(0)->beat(0)->setLyrics({held});
    piano->bar(3)->voice(0)->beat(0)->setLyrics({next});
    expectUndoable(score, [&] { return score.removeBarRange(2, 2); });
    ASSERT_TRUE(score.removeBarRange(2, 2));
    EXPECT_FALSE(piano->bar(1)->voice(0)->beat(0)->lyrics().front().hasMelisma);
}

} // namespace
