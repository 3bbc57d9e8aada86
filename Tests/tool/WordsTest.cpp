// SPDX-License-Identifier: MIT
// Chords, lyrics and marks in "zarn edit", and shapes and positions on the neck.
#include "ToolRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using namespace zarn::test;

/// A guitar with two bars of quarters on the first string.
ToolRun edit(const char *lines)
{
    return runTool({QStringLiteral("edit"), QStringLiteral("-o"), QStringLiteral("-")},
                   std::string("add-track guitar\nwrite 1:1 \"1:0q 1:1 1:3 1:0\" 2\n") + lines);
}

ToolRun run(std::initializer_list<const char *> words)
{
    QStringList arguments;
    for (const char *const word : words)
        arguments.append(QString::fromUtf8(word));
    return runTool(arguments);
}

} // namespace

TEST(Lyrics, areLaidOutAndWaitForNotes)
{
    const ToolRun sung =
        edit("lyrics 1 \"A-ma-zing_ grace how sweet the sound\"\nlist-lyrics\nshow\n"
             "show-lyrics none\nshow\n");
    EXPECT_EQ(sung.code, 0) << sung.err;
    const std::string all = sung.err + sung.out;
    EXPECT_TRUE(contains(all, "No notes are left for \"sound\"")) << all;
    EXPECT_TRUE(contains(all, "A-ma-zing_ grace how sweet the sound")) << all;
    const std::size_t shown = all.find("A-  ma- zing_ _");
    ASSERT_NE(shown, std::string::npos) << all;
    EXPECT_EQ(all.find("A-  ma-", shown + 1), std::string::npos) << "hidden lyrics are not shown";
    EXPECT_TRUE(contains(edit("lyrics-start 1\n").err, "track 1 has no lyrics in line 1"));
    EXPECT_TRUE(contains(edit("lyrics 1 a 6\n").err, "\"6\" is not what LINE takes"));
}

TEST(Chords, areWrittenWithTheDiagramsOfTheStaff)
{
    const ToolRun written =
        edit("tuning Drop D\nchord 1:1 D5 --shape best\nchord 1:3 D/F# --shape 4x0232\n");
    EXPECT_EQ(written.code, 0) << written.err;
    EXPECT_TRUE(contains(written.out, "\"frets\":[0,0,0,2,3,-1]")) << written.out;
    EXPECT_TRUE(contains(written.out, "\"frets\":[4,-1,0,2,3,2]")) << written.out;
    EXPECT_TRUE(
        contains(edit("chord 1:1 C --shape x3201\n").err, "is for 5 strings, and there are 6"));
    EXPECT_TRUE(contains(edit("chord 1:1 Huh --shape best\n").err, "\"Huh\" is no chord symbol"));
    EXPECT_TRUE(contains(edit("chord 1:1 N.C. --shape best\n").err, "N.C. is no chord"));
    EXPECT_TRUE(contains(edit("no-chord 1:1\n").err, "there is no chord here"));
}

TEST(Chords, ofTheMusicAreWrittenOverIt)
{
    const ToolRun named =
        runTool({QStringLiteral("edit"), romance(), QStringLiteral("-o"), QStringLiteral("-"),
                 QStringLiteral("-c"), QStringLiteral("name-chords 5-10 bar")});
    EXPECT_EQ(named.code, 0) << named.err;
    EXPECT_TRUE(contains(named.err + named.out, "3 chords written")) << named.err;
    EXPECT_TRUE(contains(named.out, "\"chord\":\"Em\"")) << named.out;
}

TEST(Attributes, areSetByTheirNames)
{
    const ToolRun set = edit("set 1:1 attack-dynamic sfz\nset 1:2 bend \"Bend 0:0 60:2\"\n"
                             "set-bars 2 bar-line dashed\ntoggle 1:1-4 cue\nstep 1:1 dynamic -1\n");
    EXPECT_EQ(set.code, 0) << set.err;
    for (const char *const written :
         {"\"attack\":\"sfz\"", "\"bend\":\"Bend 0:0 60:2\"", "\"barLine\":\"Dashed\"",
          "\"cue\":true", "\"dynamic\":\"MF\""})
        EXPECT_TRUE(contains(set.out, written)) << written << set.out;
    EXPECT_TRUE(contains(edit("set 1:1 pedal ?\n").err, "type one of None, Start, Change, Stop"));
    EXPECT_TRUE(contains(edit("toggle 1:1 pedal\n").err, "this is not on or off"));
    EXPECT_TRUE(contains(edit("simile 1 simple\n").err, "no bar is in front"));
    EXPECT_TRUE(contains(edit("beams 1 3+3\n").err, "these do not fill bar 1, which has 4/4"));
}

TEST(Sections, haveTheirLettersInBoxesOrCircles)
{
    const ToolRun set = edit("section 1 A Verse --frame circle\nsection 2 --frame box B\n");
    EXPECT_EQ(set.code, 0) << set.err;
    const std::size_t circle = set.out.find("\"sectionCircled\":true");
    EXPECT_LT(set.out.find("\"sectionLetter\":\"A\""), circle) << set.out;
    EXPECT_LT(circle, set.out.find("\"sectionLetter\":\"B\"")) << set.out;
    EXPECT_EQ(set.out.rfind("\"sectionCircled\""), circle) << set.out;
    EXPECT_TRUE(
        contains(edit("section 1 A --frame oval\n").err, "\"oval\" is not what FRAME takes"));
    const ToolRun help = edit("help section\n");
    EXPECT_TRUE(contains(help.err + help.out, "[--frame FRAME]")) << help.err << help.out;
    EXPECT_TRUE(contains(help.err + help.out, "--frame: one of box, circle")) << help.err;
}

TEST(ChordCommand, keepsShapesOfTheUser)
{
    EXPECT_EQ(run({"chord", "--add", "Cadd9", "x32033"}).code, 0);
    EXPECT_TRUE(contains(run({"chord", "--add", "Cadd9", "x32033"}).err, "is there already"));
    EXPECT_EQ(run({"chord", "--add", "F6", "2010", "--tuning", "ukulele"}).code, 0);
    const ToolRun listed = run({"chord", "--shapes"});
    EXPECT_TRUE(contains(listed.out, "Cadd9  x32033  E2 A2 D3 G3 B3 E4")) << listed.out;
    EXPECT_TRUE(contains(listed.out, "F6     2010 ")) << listed.out;
    EXPECT_EQ(run({"chord", "--remove", "Cadd9", "x32033"}).code, 0);
    EXPECT_EQ(run({"chord", "--remove", "F6", "--tuning", "ukulele"}).code, 0);
    EXPECT_EQ(run({"chord", "--remove", "F6", "--tuning", "ukulele"}).code, 1);
    EXPECT_TRUE(contains(run({"chord", "--shapes"}).out, "There are no shapes of your own"));
    EXPECT_TRUE(contains(run({"chord", "--add", "C", "xxxxxx"}).err, "plays no string"));
    EXPECT_EQ(run({"chord", "--add", "C"}).code, 2);
    EXPECT_EQ(run({"chord", "C", "x32010"}).code, 2);
}

TEST(ScaleCommand, drawsPositionsOnTheNeck)
{
    const ToolRun drawn = run({"scale", "A minor pentatonic", "--positions"});
    EXPECT_EQ(drawn.code, 0);
    EXPECT_TRUE(contains(drawn.out, "E4 \u253c\u2500(A)\u2500\u253c\u2500\u2500\u2500\u2500\u2500"))
        << drawn.out;
    const ToolRun json = run({"scale", "C major", "--positions", "--tuning", "ukulele", "--json"});
    const auto positions = QJsonDocument::fromJson(QByteArray::fromStdString(json.out))
                               .object()
                               .value(QStringLiteral("positions"))
                               .toArray();
    ASSERT_FALSE(positions.isEmpty());
    EXPECT_EQ(positions.at(0).toObject().value(QStringLiteral("frets")).toArray().size(), 4);
}
