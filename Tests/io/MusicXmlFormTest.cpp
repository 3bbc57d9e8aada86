// SPDX-License-Identifier: MIT
// How the bars of a document hang together: movements, bars that are divided, what is never played.
#include "MusicXmlText.h"

#include <gtest/gtest.h>

using musicxml::import;
using musicxml::score;
using utils::rational;
using zarn::io::ImportReport;

namespace {

const std::string waltz = musicxml::attributes(
    "<divisions>1</divisions><time><beats>3</beats><beat-type>4</beat-type></time>");

/// A bar of 3/4 with so many quarters in it.
std::string bar(int number, int quarters = 3, const std::string &before = {},
                const std::string &behind = {})
{
    return "<measure number=\"" + std::to_string(number) + "\">" + waltz + before
        + musicxml::note("C", 4, quarters) + behind + "</measure>\n";
}

std::string words(const std::string &text)
{
    return "<direction><direction-type><words>" + text + "</words></direction-type></direction>";
}

std::string barline(const std::string &style, const std::string &more = {})
{
    return "<barline location=\"right\"><bar-style>" + style + "</bar-style>" + more + "</barline>";
}

const std::string finalBar = barline("light-heavy");
const std::string repeatEnd = barline("light-heavy", "<repeat direction=\"backward\"/>");
const std::string repeatStart =
    "<barline location=\"left\"><repeat direction=\"forward\"/></barline>";
/// The bars of the play list, counted from 1, with "|" before each that begins a movement.
std::string played(const zarn::ScoreModel &model)
{
    std::string text;
    const auto &master = *model.masterTrack();
    for (const int bar : master.playlist())
        text += (master.masterBars()[static_cast<unsigned>(bar)]->isMovementStart() ? " |" : " ")
            + std::to_string(bar + 1);
    return text;
}

std::string played(const std::string &measures)
{
    ImportReport report;
    return played(*import(score(measures), report));
}

std::string problems(const std::string &measures)
{
    ImportReport report;
    import(score(measures), report);
    std::string text;
    for (const auto &problem : report.problems())
        text += std::to_string(problem.bar + 1) + ": " + problem.text + "\n";
    return text;
}

} // namespace

TEST(MusicXmlForm, movementsBeginWhereBarsAreCountedAgainOrTitled)
{
    const auto two = bar(1) + bar(2, 3, "", finalBar);
    EXPECT_EQ(played(two + bar(1) + bar(2)), " 1 2 |3 4");
    EXPECT_EQ(played(two + bar(0, 1) + bar(1)), " 1 2 |3 4") << "a pickup";
    EXPECT_EQ(played(two + bar(3, 3, words("III. Menuetto")) + bar(4)), " 1 2 |3 4");
    EXPECT_EQ(played(two + bar(3) + bar(4)), " 1 2 3 4") << "an end in the middle";
    EXPECT_EQ(played(bar(1) + bar(2) + bar(1) + bar(2)), " 1 2 3 4") << "no final bar line";
    EXPECT_EQ(played(bar(8) + bar(9, 3, "", finalBar) + bar(5)), " 1 2 3");
}

TEST(MusicXmlForm, anOpenEndingThatIsTakenInTurnGoesOnToTheNextBracket)
{
    const auto ending = [](int number, int pass, const std::string &type,
                           const std::string &sign = {}) {
        const auto sideways = [&](const char *side, const std::string &what) {
            return std::string("<barline location=\"") + side + "\"><ending number=\""
                + std::to_string(pass) + "\" type=\"" + what + "\"/>";
        };
        return bar(number, 3, sideways("left", "start") + "</barline>",
                   sideways("right", type) + sign + "</barline>");
    };
    const std::string backward = "<repeat direction=\"backward\"/>";
    const auto song = [&](const std::string &type) {
        return bar(1, 3, repeatStart) + ending(2, 1, "stop") + ending(3, 2, "stop")
            + ending(4, 3, type) + bar(5, 3, "", words("Fine")) + ending(6, 1, "stop", backward)
            + ending(7, 2, "stop", backward);
    };
    EXPECT_EQ(played(song("discontinue")), " 1 2 6 1 3 7 1 4 5");
    EXPECT_EQ(played(song("stop")), " 1 2 5 6 1 3 5 7 1 4 5");
}

TEST(MusicXmlForm, endingsThatEndNowhereOrBeforeTheyBeginHoldWhatTheirRepeatSays)
{
    const auto mark = [](const char *side, int pass, const char *type, bool isRepeat = false) {
        return std::string("<barline location=\"") + side + "\"><ending number=\""
            + std::to_string(pass) + "\" type=\"" + type + "\"/>"
            + (isRepeat ? "<repeat direction=\"backward\"/>" : "") + "</barline>";
    };
    const auto endings = [](const std::string &measures) {
        ImportReport report;
        const auto model = import(score(measures), report);
        std::string text;
        for (const auto &bar : model->masterTrack()->masterBars())
            text += std::to_string(bar->alternateEndings());
        return text + " " + problems(measures);
    };
    const auto first = mark("left", 1, "start");
    const auto second = mark("left", 2, "start");
    EXPECT_EQ(endings(bar(1) + bar(2, 3, "", mark("right", 1, "stop"))
                      + bar(3, 3, first, mark("right", 2, "discontinue", true)) + bar(4, 3, second)
                      + bar(5) + bar(6, 3, repeatStart) + bar(7)),
              "0012000 2: an ending ends in front of the bar in which it begins; the end was left "
              "out\n")
        << "as written one bar off";
    EXPECT_EQ(
        endings(bar(1, 3, first) + bar(2, 3, "", repeatEnd) + bar(3, 3, second) + bar(4) + bar(5)),
        "11200 3: the ending before has no end; it ends here\n");
    EXPECT_EQ(endings(bar(1) + bar(2, 3, first, repeatEnd) + bar(3, 3, second)
                      + bar(4, 3, "", repeatEnd) + bar(5, 3, mark("left", 3, "start"))),
              "01224 3: the ending before has no end; it ends here\n"
              "5: the ending before has no end; it ends here\n");
    EXPECT_EQ(
        endings(bar(1, 3, second) + bar(2) + bar(3, 3, "", mark("right", 1, "stop")) + bar(4)),
        "2210 3: an ending ends that was not begun; it covers this bar\n"
        "1: repeats and jumps lead past the bars up to 2; they are never played\n");
}

TEST(MusicXmlForm, aFineEndsItsMovementAlone)
{
    const auto first = bar(1) + bar(2, 3, "", finalBar);
    const auto minuet = bar(1, 3, words("II.")) + bar(2, 3, "", words("Fine") + finalBar);
    const auto trio = bar(3, 3, "", words("D.C. al Fine") + finalBar);
    const auto finale = bar(1) + bar(2, 3, "", finalBar);
    EXPECT_EQ(played(first + minuet + trio + finale), " 1 2 |3 4 5 |3 4 |6 7");
    const auto countedTrio = bar(1, 3, "", words("D.C. al Fine") + finalBar);
    EXPECT_EQ(played(first + minuet + countedTrio + finale), " 1 2 |3 4 5 |3 4 |6 7")
        << "the trio counts its bars from the start, and leads back to the minuet all the same";
    EXPECT_EQ(problems(first + minuet + trio + finale), "");
}

TEST(MusicXmlForm, barsThatAreNeverPlayedAreReported)
{
    const auto jump = bar(1, 3, "", words("Fine")) + bar(2, 3, "", words("D.C. al Fine"));
    EXPECT_EQ(problems(jump + bar(3)),
              "3: repeats and jumps lead past this bar; it is never played\n");
    EXPECT_EQ(problems(jump + bar(3) + bar(4)),
              "3: repeats and jumps lead past the bars up to 4; they are never played\n");
}

TEST(MusicXmlForm, barsThatAreShortOnPurposeAreNotReported)
{
    EXPECT_EQ(problems(bar(0, 1) + bar(1) + bar(2, 2)), "") << "the last bar and the pickup";
    EXPECT_EQ(problems(bar(1) + bar(2, 2, "", repeatEnd) + bar(3, 1) + bar(4)), "")
        << "a repeat sign inside of a bar";
    EXPECT_EQ(problems(bar(0, 1) + bar(1, 2, "", repeatEnd) + bar(2, 1, repeatStart) + bar(3)
                       + bar(4, 2, "", repeatEnd) + bar(5)),
              "")
        << "each part with its pickup";
    EXPECT_EQ(problems(bar(1) + bar(2, 1) + bar(3, 1) + bar(4, 1) + bar(5)), "");
    EXPECT_EQ(problems(bar(1) + bar(2, 3, "", finalBar) + bar(0, 1) + bar(1)), "")
        << "the pickup of a movement";
    EXPECT_EQ(problems(bar(1) + bar(2, 1) + bar(3)), "2: underfull: 1 quarter instead of 3\n");
    EXPECT_EQ(problems(bar(0, 1) + bar(1) + bar(2, 1)), "3: underfull: 1 quarter instead of 3\n")
        << "too little for the pickup";
}

TEST(MusicXmlForm, restsThatAreNotPrintedAreNoneInTheTree)
{
    const auto rest = [](int duration, const char *hidden) {
        return std::string("<note") + hidden + "><rest/><duration>" + std::to_string(duration)
            + "</duration><voice>2</voice></note>";
    };
    ImportReport report;
    const auto model = import(
        score(waltz
              + bar(1, 3, "", musicxml::backup(3) + rest(2, " print-object=\"no\"") + rest(1, ""))),
        report);
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(1);
    ASSERT_EQ(voice->beatCount(), 2u);
    EXPECT_TRUE(voice->beat(0)->isPlaceHolder());
    EXPECT_EQ(voice->beat(0)->length(), rational(2));
    EXPECT_TRUE(voice->beat(1)->isRest());
    EXPECT_TRUE(report.problems().empty());
    EXPECT_EQ(report.tally().parts[0].notes.rests, 2u);
}
