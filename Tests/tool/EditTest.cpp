// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "edit/Commands.h"

#include <set>

namespace {

using namespace zarn::test;

ToolRun edit(const QString &file, const std::string &lines, const QStringList &options = {})
{
    return runTool(QStringList({QStringLiteral("edit"), file}) + options, lines);
}

/// Every command that changes a score, once, on the band; macros among them.
const char *const EveryCommand = R"(
add-beat 19:2 quarter t2
fret 19:2 2 3 t2
pitch 19:2 E5 t2
pitch 19:2 F5 E5 t2
rhythm 19:1-2 half t2
dynamic 19:1-2 mp t2
rest 19:1 t2
remove-beats 19:1 t2
add-bars 20 2
remove-bars 2-3
time 5-8 3/4
key 9-12 Em
feel all triplet-8th
free-time 6 on
double-bar 4 on
movement 3 on
repeat-start 4 on
repeat-end 6 3
endings 5-6 1,3
direction segno 3
direction da-segno 9
direction segno
section 7 C "Another part"
no-section 1
clef all bass t1
add-track electricBass 2
copy-track 1
remove-track 1
name 1 "Low one"
short-name 1 Low
icon 1 electricBass
tuning D2 A2 D3 G3 B3 D4 t2
retune E2 A2 D3 G3 B3 E4 t2
capo 3 t2
add-sound 1 Fretless 36
remove-sound 1 1
add-audio-track take1 take1.wav
remove-audio-track 1
property words-and-music Nobody
page-text header-left "%Title%"
concert-tone 442
tempo 3 140 half "Più mosso"
no-tempo 3
bypass-tempo on
effect 2 3 0.5 t1
master-effect 2 1 0.25
no-reverb
select 2:1 - 3:1 t2
cursor 2:1 t2
next
previous
)";

TEST(Edit, everyCommandIsUndoneToTheByteAndRedone)
{
    std::set<QString> used;
    for (const QString &line : QString::fromUtf8(EveryCommand).split(QLatin1Char('\n')))
        used.insert(line.section(QLatin1Char(' '), 0, 0));
    for (const auto &area : zarn::tool::commandAreas()) {
        if (&area.commands == &zarn::tool::sessionCommands())
            continue;
        for (const auto &command : area.commands)
            EXPECT_TRUE(used.count(command.name)) << command.name.toStdString();
    }

    const Folder folder;
    const std::string once = std::string(EveryCommand) + "save "
        + folder.file("once.zarn").toStdString() + "\nundo all\ncompare\nredo all\nsave "
        + folder.file("twice.zarn").toStdString() + "\nundo all\ncompare\n";
    const ToolRun run = edit(saints(), once);
    EXPECT_EQ(run.code, 0) << run.err << run.out;
    EXPECT_EQ(contentOf(folder.file("once.zarn")), contentOf(folder.file("twice.zarn")));

    const ToolRun macro =
        edit(saints(),
             "begin\nname 1 A\nbegin\nproperty title B\ncommit\nadd-bars 1\ncommit\n"
             "undo\ncompare\n");
    EXPECT_EQ(macro.code, 0) << macro.err;
}

TEST(Edit, aWrongLineStopsAScriptWithItsPlaceAndSavesNothing)
{
    const Folder folder;
    const QString out = folder.file("out.zarn");
    const QString script = folder.file("wrong.zarnedit");
    writeFile(script, "# first\nname 1 Solo\n\n  fret 1:1 8 0 t2\nname 1 Later\n");
    const ToolRun run = runTool({QStringLiteral("edit"), saints(), QStringLiteral("--script"),
                                 script, QStringLiteral("-o"), out});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(
        contains(run.err, script.toStdString() + ": line 4, column 12: there is no string 8"))
        << run.err;
    EXPECT_FALSE(QFile::exists(out));

    const char *const refused[] = {
        "undo",
        "redo",
        "commit",
        "abandon",
        "undo 5",
        "fret 2:9 1 1 t2",
        "no-tempo 5",
        "remove-sound 1 9",
        "save nowhere/at/all.zarn",
        "save",
        "help nothing",
        "begin\nundo\n",
    };
    for (const char *const lines : refused) {
        const ToolRun wrong = edit(saints(), lines);
        EXPECT_EQ(wrong.code, 1) << lines;
        EXPECT_TRUE(contains(wrong.err, "standard input: line ")) << wrong.err;
        EXPECT_TRUE(contains(wrong.err, "column ")) << wrong.err;
        EXPECT_FALSE(hasSourcePlace(wrong.err)) << wrong.err;
    }
    EXPECT_TRUE(contains(edit(saints(), "begin\nname 1 X\n").err, "a macro is still open"));
}

TEST(Edit, eventsArePrintedAsTheyAreDeliveredWhileAskedFor)
{
    const ToolRun run = edit(romance(),
                             "name 1 Silent\nevents on\nadd-bars 5 2\nundo\nbegin\ntime 1-2 4/4\n"
                             "direction coda 3\ncommit\nevents off\nname 1 Quiet\n");
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out,
              "  event CommandPushed: command \"CreateBars\"\n"
              "  event AddBars: bar 5, count 2\n"
              "  event RequestMasterBarPlaylistUpdate\n"
              "  event CommandExecuted\n"
              "  event CommandWillUndo: command \"CreateBars\"\n"
              "  event RemoveBars: bar 5, count 2\n"
              "  event RequestMasterBarPlaylistUpdate\n"
              "  event CommandExecuted\n"
              "Undid 1 step.\n"
              "  event CommandPushed: command \"\"\n"
              "  event BeginMacro\n"
              "  event MasterBarTimeSignature: first bar 1, last bar 2\n"
              "  event MasterBarDirection: direction Coda, from bar none, to bar 3\n"
              "  event RequestMasterBarPlaylistUpdate\n"
              "  event EndMacro\n"
              "  event CommandExecuted\n");
}

TEST(Edit, anAbandonedMacroLeavesNoTraceAndACommittedOneIsOneStep)
{
    const ToolRun run = edit(romance(),
                             "events on\nbegin\nremove-bars 1-8\nname 1 X\nabandon\n"
                             "compare\nbegin\nname 1 X\nname 1 Y\ncommit\nhistory\n"
                             "undo 2\n");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out.rfind("The score is what it was", 0), 0u) << run.out;
    EXPECT_TRUE(contains(run.out, "newest first: 1 step\n")) << run.out;
    EXPECT_TRUE(contains(run.err, "only 1 step to undo")) << run.err;
}

TEST(Edit, aFailedComparisonIsTheExitCodeAndTheScoreIsSavedAllTheSame)
{
    const Folder folder;
    const QString out = folder.file("out.zarn");
    const ToolRun run = edit(romance(), "name 1 Other\ncompare\nundo\ncompare\nredo\n",
                             {QStringLiteral("-o"), out});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(contains(run.out, "is not what it was")) << run.out;
    EXPECT_TRUE(contains(runTool({QStringLiteral("info"), out}).out, "1 Other"));
}

TEST(Edit, aNativeDocumentIsSavedInPlaceAndQuitReadsNoFurther)
{
    const Folder folder;
    const QString file = folder.file("score.zarn");
    ASSERT_EQ(runTool({QStringLiteral("convert"), romance(), file}).code, 0);
    EXPECT_EQ(edit(file, "property title New\nsave\nquit\nnonsense\n").code, 0);
    EXPECT_TRUE(contains(runTool({QStringLiteral("info"), file}).out, "Title: New\n"));
}

TEST(Edit, theTourOfTheSamplesEndsWhereItBegan)
{
    const Folder folder;
    const QString out = folder.file("tour.zarn");
    const ToolRun run = runTool({QStringLiteral("edit"), romance(), QStringLiteral("--script"),
                                 sample("tour.zarnedit"), QStringLiteral("-o"), out});
    EXPECT_EQ(run.code, 0) << run.err;
    const QString plain = folder.file("plain.zarn");
    ASSERT_EQ(runTool({QStringLiteral("convert"), romance(), plain}).code, 0);
    EXPECT_EQ(contentOf(out), contentOf(plain));
}

} // namespace
