// SPDX-License-Identifier: MIT
#include "ToolRun.h"

namespace {

using namespace zarn::test;

/// Without a file, begins with an empty score.
ToolRun edit(const QString &file, const std::string &lines, const QStringList &options = {})
{
    QStringList words(QStringLiteral("edit"));
    if (!file.isEmpty())
        words.append(file);
    return runTool(words + options, lines);
}

/// In the golden file as a reader would copy it from the README.
TEST(Edit, fourBarsOfARiffInDropDWithDrumsTakeLessThanTenLines)
{
    const Folder folder;
    const QString readme =
        QString::fromStdString(contentOf(QStringLiteral(ZARN_SOURCE_DIR "/README.md")));
    const QString golden = QString::fromStdString(
        contentOf(QStringLiteral(ZARN_SOURCE_DIR "/Tests/tool/golden/riff.txt")));
    QStringList typed;
    for (const QString &line : golden.split(QLatin1Char('\n')))
        if (line.startsWith(QStringLiteral("zarn> ")))
            typed.append(line.mid(6));
    EXPECT_LT(typed.size(), 10);
    const QString out = folder.file("riff.zarn");
    const ToolRun run = runTool({QStringLiteral("edit"), QStringLiteral("-o"), out},
                                "echo on\n" + typed.join(QLatin1Char('\n')).toStdString() + '\n');
    EXPECT_EQ(run.code, 0) << run.err;
    QString said = QString::fromStdString(run.out);
    said.replace(out, QStringLiteral("riff.zarn"));
    expectGolden("riff.txt", said.toStdString());
    EXPECT_TRUE(readme.contains(said)) << "the README shows this session";
    const ToolRun shown = runTool({QStringLiteral("info"), out});
    EXPECT_TRUE(contains(shown.out, "tuning D2 A2 D3 G3 B3 E4")) << shown.out;
    EXPECT_TRUE(contains(shown.out, "Bars: 4\n")) << shown.out;
}

TEST(Edit, musicIsWrittenOverTheBarLinesAndOverWhatIsThere)
{
    const Folder folder;
    const QString out = folder.file("out.zarn");
    const ToolRun run = edit(romance(), "write 1:4 \"1:1q~ 1:1e 2:x & 6:0h\"\n");
    EXPECT_TRUE(contains(run.err, "several voices")) << run.err;

    // Nine triplet eighths: the music covers the fourth to the ninth and begins the next bar.
    const ToolRun written = edit(romance(),
                                 "write 1:4 \"[1:1 2:1]h~ [1:1 2:1]e 3:xe\"\nshow 1-2\nundo\n"
                                 "compare\nredo\nuse v3\nappend \"E3q\" 4\nshow 1-2 1\n",
                                 {QStringLiteral("-o"), out});
    EXPECT_EQ(written.code, 0) << written.err;
    expectGolden("written.txt", written.out.substr(0, written.out.rfind("Saved to")));
}

TEST(Edit, refusalsSayTheReasonAtTheWordThatIsWrong)
{
    struct Refused {
        const char *lines;
        const char *reason;
    };
    const Refused all[] = {
        {"fret 2:9 1 1 t2", "column 6: voice 1 of bar 2 has no beat 9; it has 4"},
        {"fret 2:1 1 1 v3 t2", "voice 3 of bar 2 has no beat 1; it is empty"},
        {"fret 2:1 1 30 t2", "column 12: string 1 of track 2 has no fret 30"},
        {"pitch 2:1 C9 t2", "column 11: no free string of 2:1 can play this"},
        {"pitch 2:1 Bb2 t2", "2:1 has this note already"},
        {"tuning Chicago t2", "column 8: \"Chicago\" is for 4 strings"},
        {"tuning E2 A2 t2", "these are 2 notes, but there are 6 strings"},
        {"tuning \"Dro D\" t2", "did you mean \"Drop D\"?"},
        {"strings 11 t2", "no tuning with 11 strings is known"},
        {"add-track gitar", "did you mean \"guitar\"?"},
        {"repeat-end 3 1", "a repeat is played at least twice"},
        {"no-reverb\nno-reverb", "no reverb any more"},
        {"capo 3 t1", "no strings to put a capo on"},
        {"remove-sound 1 9", "column 16: track 1 has only 1 sound"},
        {"volume first 1", "\"first\" is not"},
        {"bypass master 3", "column 15: slot 3 is empty"},
        {"knobs master 4 0.5", "this effect has 2 knobs"},
        {"set-effect 1 1 eq \"0.5 x\"", "column 19: \"x\" is no number"},
        {"color 1 red", "six digits"},
        {"move-automations 17 2", "nothing changes in this bar"},
        {"set-several 2:1 dynamics f t2",
         "column 17: \"dynamics\" is not what VALUES takes; did you"},
        {"set-several 2:1 cue on cue off t2", "column 24: \"cue\" stands here twice"},
        {"set-several 2:1 cue on dynamic t2", "the value of \"dynamic\" is missing"},
        {"set-several 2:1 cue on dynamic loud t2", "column 32: \"loud\" is not right here"},
        {"set-several-bars 2 double-bar on clef G2 t1",
         "\"double-bar\" and \"clef\" do not go together"},
        {"directions 3 segno none", "\"none\" is not what DIRECTIONS takes"},
        {"tie-notes 3:1 off t2", "no note here is tied"},
        {"repeat-bar 1-2", "there is no bar in front of bar 1"},
        {"repeat-bar 2-3 t2", "bar 2 is not as long as bar 1"},
        {"write 2:1 \"6:0e 7:1\" t2", "column 17: expected a string from 1 to 6"},
        {"write 2:1 \"6:0h. 6:0h\" t2", "bar 2 has only a quarter left"},
        {"write 2:1 6:0e t2", "in \"quotes\""},
        {"time 3/4", "BARS is missing: nothing is selected and the cursor is nowhere"},
        {"time x 3/4", "\"x\" is not a bar number"},
        {"begin\nadd-bars 1\nremove-beats 1:7 t2\ncommit",
         "line 3, column 14: voice 1 of bar 1 has no beat 7; it is empty"},
        {"add-track guitar --strings", "STRINGS is missing: type --strings and a whole number"},
        {"add-track guitar --strings 11", "column 28: no tuning with 11 strings is known"},
        {"add-track guitar --tuning \"Dro D\"", "column 27: \"Dro D\" is neither"},
        {"select 1 t1\nfinger", "nothing here is played on strings"},
        {"add-track guitar\nselect 1 t5\nfinger", "line 3, column 7: there are no notes here"},
        {"add-track guitar\nwrite 1:1 \"rq\" t5\nfinger 1:1 t5", "there are no notes here"},
    };
    for (const Refused &refused : all) {
        const ToolRun run = edit(saints(), refused.lines);
        EXPECT_EQ(run.code, 1) << refused.lines;
        EXPECT_TRUE(contains(run.err, refused.reason)) << refused.lines << '\n' << run.err;
        EXPECT_FALSE(contains(run.err, "Cannot execute")) << run.err;
        EXPECT_FALSE(hasSourcePlace(run.err)) << run.err;
    }
}

TEST(Edit, changesThatNobodySavesAreToldAsLost)
{
    const Folder folder;
    const ToolRun lost = edit(romance(), "name 1 X\n");
    EXPECT_EQ(lost.code, 1);
    EXPECT_TRUE(contains(lost.err, "the changes are lost")) << lost.err;
    const ToolRun page =
        edit(romance(), "name 1 X\nsave " + folder.file("x.tab").toStdString() + "\n");
    EXPECT_EQ(page.code, 0) << "a script that writes a page has done what it was for: " << page.err;
    EXPECT_EQ(edit(romance(), "name 1 X\nundo\n").code, 0);
    EXPECT_EQ(edit(romance(), "show 1\n").code, 0);
    const std::string save = "name 1 X\nsave " + folder.file("kept.zarn").toStdString() + '\n';
    EXPECT_EQ(edit(romance(), save).code, 0);
    EXPECT_EQ(edit(romance(), save + "name 1 Y\n").code, 1);
}

TEST(Edit, musicIsPastedSeveralTimesAndFromFiles)
{
    const Folder folder;
    const std::string clip = folder.file("clip.zarn").toStdString();
    const auto barsAfter = [&](const char *name, const std::string &lines) {
        const QString out = folder.file(name);
        const ToolRun run = edit(romance(), lines, {QStringLiteral("-o"), out});
        EXPECT_EQ(run.code, 0) << run.err;
        const std::string shown = runTool({QStringLiteral("info"), out}).out;
        const std::size_t bars = shown.find("Bars: ");
        return bars == std::string::npos ? shown : shown.substr(bars + 6, 2);
    };
    EXPECT_EQ(barsAfter("twice.zarn", "copy-bars 1-2 --to " + clip + "\npaste 3 --times 2\n"),
              "20");
    EXPECT_EQ(barsAfter("thrice.zarn", "paste 3 --from " + clip + " --times 3\n"), "22");
}

TEST(Edit, commandsOfTheCommandLineAndStandardStreams)
{
    const Folder folder;
    const QString out = folder.file("fives.zarn");
    const ToolRun fives = runTool({QStringLiteral("edit"), romance(), QStringLiteral("-c"),
                                   QStringLiteral("select all"), QStringLiteral("-c"),
                                   QStringLiteral("fret 5"), QStringLiteral("-o"), out});
    EXPECT_EQ(fives.code, 0) << fives.err;
    const std::string shown =
        runTool({QStringLiteral("show"), out, QStringLiteral("--bars"), QStringLiteral("1-4")}).out;
    EXPECT_TRUE(contains(shown, "5────────5────────5")) << shown;
    EXPECT_FALSE(contains(shown, "7───")) << shown;

    const ToolRun piped =
        runTool({QStringLiteral("edit"), QStringLiteral("-"), QStringLiteral("-c"),
                 QStringLiteral("name 1 Piped"), QStringLiteral("-c"), QStringLiteral("cursor 1:1"),
                 QStringLiteral("-o"), QStringLiteral("-")},
                contentOf(romance()));
    EXPECT_EQ(piped.code, 0) << piped.err;
    EXPECT_TRUE(contains(piped.err, "Cursor: 1:1"));
    const ToolRun info = runTool({QStringLiteral("info"), QStringLiteral("-")}, piped.out);
    EXPECT_TRUE(contains(info.out, "1 Piped")) << info.err;
    EXPECT_TRUE(contains(info.out, "File: standard input"));
    EXPECT_EQ(runTool({QStringLiteral("edit"), QStringLiteral("-")}, piped.out).code, 2);
    const ToolRun converted =
        runTool({QStringLiteral("convert"), QStringLiteral("-"), QStringLiteral("-")}, piped.out);
    EXPECT_EQ(converted.out, piped.out);
    const ToolRun wrong =
        runTool({QStringLiteral("edit"), romance(), QStringLiteral("-c"),
                 QStringLiteral("name 1 A"), QStringLiteral("-c"), QStringLiteral("nam 1 B")});
    EXPECT_TRUE(contains(wrong.err, "command 2, column 1")) << wrong.err;
    const ToolRun garbage = runTool({QStringLiteral("info"), QStringLiteral("-")}, "not a score");
    EXPECT_TRUE(contains(garbage.err, "standard input: ")) << garbage.err;
}

TEST(Edit, pitchesAreTheSameWordsEverywhere)
{
    // What "show" calls the open string, "pitch" takes and "cursor" says, also where the player
    // reads another note; drums have names.
    const ToolRun guitar = edit(QString(),
                                "add-track guitar\nadd-beat 1:1 8th\n"
                                "pitch 1:1 E2\ncursor 1:1\nshow\nexit\nnonsense\n");
    EXPECT_TRUE(contains(guitar.out, "E2 on string 6 fret 0")) << guitar.out << guitar.err;
    EXPECT_TRUE(contains(guitar.out, "E2      │─────0")) << guitar.out;
    const ToolRun trumpet = edit(saints(),
                                 "pitch 2:1 Bb4 F5 t1\ncursor 2:1 t1\npitch 2:1 hihat t4\nuse t4\n"
                                 "cursor 2:1\nselect 3\nselect 1-4 all\n");
    EXPECT_TRUE(contains(trumpet.out, "whole, Bb4.")) << trumpet.out << trumpet.err;
    EXPECT_TRUE(contains(trumpet.out, "in track 4 (Drums)")) << trumpet.out;
    EXPECT_TRUE(contains(trumpet.out, "bar 3 in track 4 (Drums)")) << trumpet.out;
    EXPECT_TRUE(contains(trumpet.out, "bars 1 to 4 in all tracks")) << trumpet.out;
}

/// One says it to either program as to the other.
TEST(Edit, theOptionsOfNewAreCommandsAndTheCommandsAnOptionOfNew)
{
    const Folder folder;
    const QString typed = folder.file("typed.zarn");
    const QString made = folder.file("made.zarn");
    const ToolRun edited =
        edit(QString(),
             "--track guitar --strings 7 --tuning \"Drop A\"\ntrack drums\n--title Heavy\n"
             "artist Nobody\n--tempo 90\n--bars 4\n--time 3/4\n",
             {QStringLiteral("-o"), typed});
    EXPECT_EQ(edited.code, 0) << edited.err;
    const ToolRun run = runTool({QStringLiteral("new"),
                                 QStringLiteral("-t"),
                                 QStringLiteral("guitar"),
                                 QStringLiteral("--strings"),
                                 QStringLiteral("7"),
                                 QStringLiteral("--bars"),
                                 QStringLiteral("1"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("add-track drums"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("tuning \"Drop A\""),
                                 QStringLiteral("-c"),
                                 QStringLiteral("title Heavy"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("artist Nobody"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("tempo 1 90"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("add-bars 2 3"),
                                 QStringLiteral("-c"),
                                 QStringLiteral("time all 3/4"),
                                 made});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(contentOf(typed), contentOf(made));
    EXPECT_TRUE(contains(run.out, "A1")) << run.out;

    const QString wrong = folder.file("wrong.zarn");
    const ToolRun refused =
        runTool({QStringLiteral("new"), QStringLiteral("-t"), QStringLiteral("bass"),
                 QStringLiteral("-c"), QStringLiteral("fret 1:1 1 3"), wrong});
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(contains(refused.err, "command 1, column 6: voice 1 of bar 1")) << refused.err;
    EXPECT_FALSE(QFile::exists(wrong));
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
        "bend 2:1 sideways t2",
        "bend 2:1 full hold t2",
        "vibrato 2:1 wide --string 6 t2",
        "shift-string 2:1 down t1",
        "tuplet 2:1 3 t2",
        "transpose 2 t4",
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
    EXPECT_TRUE(contains(edit(saints(), "begin\nname 1 X\n").err, "a group is still open"));
}

TEST(Edit, eventsArePrintedAsTheyAreDeliveredWhileAskedFor)
{
    const ToolRun run = edit(romance(),
                             "name 1 Silent\nevents all\nadd-bars 5 2\nundo\nbegin\ntime 1-2 4/4\n"
                             "direction coda 3\ncommit\nevents on\nadd-bars 1\nevents off\n"
                             "name 1 Quiet\nundo all\n");
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
              "  event CommandPushed: command \"Group\"\n"
              "  event BeginMacro\n"
              "  event MasterBarTimeSignature: first bar 1, last bar 2\n"
              "  event MasterBarDirection: direction Coda, from bar none, to bar 3\n"
              "  event RequestMasterBarPlaylistUpdate\n"
              "  event EndMacro\n"
              "  event CommandExecuted\n"
              "  events: AddBars (bar 1, count 1); RequestMasterBarPlaylistUpdate; "
              "MasterTrackAutomationChanged (first bar 1, last bar 2, automation Tempo) and 1 "
              "more\n"
              "Undid 4 steps.\n");
}

TEST(Edit, anAbandonedGroupLeavesNoTraceAndACommittedOneIsOneStep)
{
    const ToolRun run = edit(romance(),
                             "begin\nremove-bars 1-8\nname 1 X\nabandon\n"
                             "compare\nbegin Names\nname 1 X\nname 1 Y\ncommit\nhistory\n"
                             "undo 2\n");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out.rfind("The score is what it was", 0), 0u) << run.out;
    EXPECT_TRUE(contains(run.out, "newest first: 1 step\n  1 Names ")) << run.out;
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
