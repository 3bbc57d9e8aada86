// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "common/MusicReader.h"
#include "edit/CommandReader.h"
#include "edit/Commands.h"
#include "edit/Parameter.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

namespace {

using namespace zarn;
using namespace zarn::tool;
using namespace zarn::test;

QString line(const char *text)
{
    return QString::fromUtf8(text);
}

TEST(ScriptLine, wordsQuotesAndCommentsAreToldApart)
{
    const auto words = splitLine(line("  name 1 \"a \\\"b\\\" # c\\\\\"  C#4 # rest"));
    ASSERT_EQ(words.size(), 4u);
    EXPECT_EQ(words[0].column, 3);
    EXPECT_EQ(words[2].text, line("a \"b\" # c\\"));
    EXPECT_EQ(words[2].column, 10);
    EXPECT_EQ(words[3].text, line("C#4"));
    EXPECT_TRUE(splitLine(line(" # nothing")).empty());
    EXPECT_EQ(splitLine(line("name 1 \"\"")).back().text, QString());
}

/// A wrong line, the column of the message and a part of it.
struct WrongLine {
    const char *text;
    int column;
    const char *message;
};

TEST(ScriptLine, wrongLinesAreNamedByColumnAndWhatWouldBeRight)
{
    const auto score =
        ZarnCoreUtils::make_from_string("guitar: 1:0q 2:0 3:0 4:0 | 1:0w | r ; piano: c4w + c3w");
    const ReadingContext context = {score->scoreModel().get(), Where()};
    const WrongLine lines[] = {
        {"fret 1:1 1", 11, "FRET is missing"},
        {"fret 1:1 7 3", 10, "no string 7; they go from 1 to 6"},
        {"fret 1:1 1 99", 12, "whole number from 0 to 36"},
        {"fret 4:1 1 3", 6, "no bar 4; they go from 1 to 3"},
        {"fret 1 1 3", 6, "such as 3:2"},
        {"fret 1:1 1 3 4", 14, "one word too many"},
        {"fret 1:1 1 3 t2", 10, "track 2 has no strings"},
        {"fret 1:1 1 3 t3", 14, "no track 3"},
        {"fret t1 1:1 1 3 v5", 17, "no voice 5"},
        {"  fert 1:1 1 3", 3, "did you mean \"fret\""},
        {"xyzzy", 1, "\"help\" lists them"},
        {"add-bars 5", 10, "no bar 5"},
        {"add-bars 1 0", 12, "from 1 to"},
        {"remove-bars 3-1", 13, "type 1-3"},
        {"remove-bars 1-2-3", 13, "bars such as 5-8"},
        {"time 1 4/5", 8, "such as 3/4"},
        {"key all Hm", 9, "such as G"},
        {"rhythm 1:1 e/1", 12, "such as quarter"},
        {"pitch 1:1 H4", 11, "C4 is middle C"},
        {"dynamic 1:3-2 mf", 9, "end before they begin"},
        {"dynamic 1:1 loud", 13, "one of none, pppp"},
        {"tempo 1 fast", 9, "a number from 1 to 1000"},
        {"tempo 1 nan", 9, "a number from 1 to 1000"},
        {"events maybe", 8, "one of on, off, all"},
        {"echo maybe", 6, "on or off"},
        {"write 1:1 6:0e", 11, "in \"quotes\""},
        {"write 5:1 \"6:0e\"", 7, "no bar 5; they go from 1 to 4"},
        {"name 1 \"open", 8, "not closed"},
        {"name 1 \"a\"b", 11, "space behind the closing quote"},
        {"endings 1 2-1", 11, "passes such as"},
    };
    for (const WrongLine &wrong : lines) {
        try {
            readLine(line(wrong.text), context);
            ADD_FAILURE() << wrong.text << " was read";
        } catch (const LineError &error) {
            EXPECT_EQ(error.column(), wrong.column) << wrong.text << ": " << error.what();
            EXPECT_TRUE(contains(error.what(), wrong.message))
                << wrong.text << ": " << error.what();
        }
    }
}

TEST(ScriptLine, placesAreCountedAsPeopleCount)
{
    const auto score = ZarnCoreUtils::make_from_string("guitar: 1:0 | 1:0 ; piano: c4 + c3");
    const ReadingContext context = {score->scoreModel().get(), Where()};
    const auto fret = readLine(line("fret 2:1 1 3"), context);
    EXPECT_EQ(fret->values.get<BeatRange>(0).first.bar, 1u);
    EXPECT_EQ(fret->values.get<BeatRange>(0).first.beat, 0u);
    EXPECT_EQ(fret->values.get<int>(1), 5) << "string 1 is the highest";
    const auto rest = readLine(line("rest 1:2-2:3 v2 s2 t2"), context);
    EXPECT_EQ(rest->values.get<BeatRange>(0).last.bar, 1u);
    EXPECT_EQ(rest->values.get<BeatRange>(0).last.beat, 2u);
    EXPECT_EQ(rest->values.where().track, 1u);
    EXPECT_EQ(rest->values.where().staff, 1u);
    EXPECT_EQ(rest->values.where().voice, 1u);
    EXPECT_EQ(readLine(line("add-bars 3"), context)->values.get<int>(0), 2) << "behind the last";
    EXPECT_EQ(readLine(line("show all"), context)->values.get<BarRange>(0).last, 1u);
    EXPECT_FALSE(readLine(line("   "), context));
}

TEST(ScriptLine, musicIsReadInTheNotationOfMusicians)
{
    EXPECT_EQ(parseRhythm(line("e/3"))->getLength(), utils::rational(1, 3));
    EXPECT_EQ(parseRhythm(line("eighth/3:2/5:4"))->getLength(), utils::rational(4, 15));
    EXPECT_EQ(parseRhythm(line("half.."))->getLength(), utils::rational(7, 2));
    EXPECT_EQ(parseRhythm(line("128th"))->getLength(), utils::rational(1, 32));
    for (const char *const eighth : {"8th", "1/8", "e", "eighth"})
        EXPECT_EQ(parseRhythm(line(eighth))->getLength(), utils::rational(1, 2)) << eighth;
    EXPECT_EQ(parseRhythm(line("1/8./3"))->getLength(), utils::rational(1, 2));
    EXPECT_EQ(parseRhythm(line("32nd"))->getLength(), utils::rational(1, 8));
    EXPECT_FALSE(parseRhythm(line("1/7")));
    EXPECT_FALSE(parseRhythm(line("q....")));
    EXPECT_FALSE(parseRhythm(line("")));

    EXPECT_EQ(parsePitch(line("C4"))->midi, 60);
    EXPECT_EQ(parsePitch(line("cb5"))->midi, 71);
    EXPECT_EQ(parsePitch(line("B#3"))->midi, 60);
    EXPECT_EQ(parsePitch(line("C-1"))->midi, 0);
    EXPECT_EQ(parsePitch(line("61"))->midi, 61);
    EXPECT_FALSE(parsePitch(line("128")));
    EXPECT_FALSE(parsePitch(line("G##9")));

    EXPECT_EQ(parseKey(line("Ebm"))->accidentalCount(), -6);
    EXPECT_EQ(parseKey(line("C#"))->accidentalCount(), 7);
    EXPECT_FALSE(parseKey(line("Fb")));
    EXPECT_EQ(parsePasses(line("1,3-4")), 13);
    EXPECT_EQ(parsePasses(line("none")), 0);
    EXPECT_FALSE(parsePasses(line("0")));
    EXPECT_FALSE(parsePasses(line("33")));
}

TEST(ScriptLine, completionOffersWhatFitsTheParameter)
{
    EXPECT_EQ(completions("rep"),
              (std::vector<std::string>{"repeat-bar", "repeat-beat", "repeat-end", "repeat-start",
                                        "replace"}));
    EXPECT_EQ(completions("clef 1 t"), (std::vector<std::string>{"tenor", "treble"}));
    EXPECT_EQ(completions("events o"), (std::vector<std::string>{"off", "on"}));
    EXPECT_EQ(completions("help und"), (std::vector<std::string>{"undo"}));
    EXPECT_TRUE(completions("fret 1").empty());
    EXPECT_EQ(completions("").size(), completions("help ").size());
}

} // namespace
