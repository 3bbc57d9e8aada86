// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "edit/CommandReader.h"

namespace {

using namespace zarn::test;

ToolRun edit(const QString &file, const std::string &lines)
{
    return runTool({QStringLiteral("edit"), file}, lines);
}

TEST(Places, theCursorIsToldInPlayersWordsAndMovesAsAsked)
{
    const ToolRun run = edit(romance(),
                             "cursor\nnext\ncursor 3:2 string 2\nnext 8\nprevious bar 2\n"
                             "next voice\nnext string\ncursor last bar v1 last beat first string\n"
                             "use v3\n");
    EXPECT_EQ(run.code, 0) << run.err;
    const std::string guitar = " in track 1 (Classical Guitar), voice ";
    EXPECT_EQ(run.out,
              "Cursor: nowhere.\n"
              "Cursor: 1:1"
                  + guitar
                  + "1, string 1: eighth/3, B4 on string 1 fret 7.\n"
                    "Cursor: 3:2"
                  + guitar
                  + "1, string 2: eighth/3, B3 on string 2 fret 0.\n"
                    "Cursor: 4:1"
                  + guitar
                  + "1, string 2: eighth/3, E4 on string 1 fret 0.\n"
                    "Cursor: 2:1"
                  + guitar
                  + "1, string 2: eighth/3, B4 on string 1 fret 7.\n"
                    "Cursor: 2:1"
                  + guitar
                  + "2, string 2: half., E2 on string 6 fret 0.\n"
                    "Cursor: 2:1"
                  + guitar
                  + "2, string 3: half., E2 on string 6 fret 0.\n"
                    "Cursor: 16:1"
                  + guitar
                  + "1, string 1: half., E4 on string 1 fret 0, B3 on string 2 fret 0, G3 on "
                    "string 3 fret 0, E3 on string 4 fret 2, B2 on string 5 fret 2, E2 on string "
                    "6 fret 0.\n"
                    "From now on in track 1, staff 1, voice 3.\n");
    // Without strings the notes of a beat are walked; the lines of a band keep the time.
    const ToolRun band = edit(saints(), "cursor 3:2\nnext track\nnext staff\n");
    EXPECT_TRUE(contains(band.out, "Cursor: 3:2 in track 1 (Trumpet in Bb), voice 1: "))
        << band.out;
    EXPECT_TRUE(contains(band.err, "line 3, column 1: there is no next staff\n")) << band.err;
}

TEST(Places, selectionsAreCountedAsTheyReach)
{
    const ToolRun run = edit(romance(),
                             "select\nselect 3:2 - 4:1 track 1 voice all\nselect 3:2 - 4:1\n"
                             "select 3:2-4\nselect 3\nselect 3:2\nselect 3-4 v2\nselect all\n"
                             "select track 1\nselect none\n");
    EXPECT_EQ(run.code, 0) << run.err;
    const std::string guitar = " in track 1 (Classical Guitar), ";
    EXPECT_EQ(run.out,
              "Nothing is selected.\n"
              "Selected: bars 3 to 4"
                  + guitar
                  + "all voices: 2 bars, 20 beats, 20 notes.\n"
                    "Selected: 3:2 to 4:1"
                  + guitar
                  + "voice 1: 2 bars, 9 beats, 9 notes.\n"
                    "Selected: 3:2 to 3:4"
                  + guitar
                  + "voice 1: 1 bar, 3 beats, 3 notes.\n"
                    "Selected: bar 3"
                  + guitar
                  + "all voices: 1 bar, 10 beats, 10 notes.\n"
                    "Selected: 3:2"
                  + guitar
                  + "voice 1: 1 bar, 1 beat, 1 note.\n"
                    "Selected: bars 3 to 4"
                  + guitar
                  + "voice 2: 2 bars, 2 beats, 2 notes.\n"
                    "Selected: bars 1 to 16 in all tracks: 16 bars, 151 beats, 156 notes.\n"
                    "Selected: bars 1 to 16"
                  + guitar
                  + "all voices: 16 bars, 151 beats, 156 notes.\n"
                    "Nothing is selected.\n");
}

/// Lines that leave their places out, and what the same lines are with them.
TEST(Places, whatIsLeftOutIsTheSelectionOrTheCursor)
{
    const std::pair<const char *, const char *> scripts[] = {
        {"cursor 3:2 string 2\nfret 5\n", "fret 3:2 2 5\n"},
        {"cursor 3:2 string 2\nfret 3:4 5\n", "fret 3:4 2 5\n"},
        {"cursor 3:2\npitch E5 B3\nfret 1 2\n", "pitch 3:2 E5 B3\nfret 3:2 1 2\n"},
        {"cursor 4\nadd-beat v3 quarter\n", "add-beat 4:1 quarter v3\n"},
        {"cursor 3:1 v2\nnext\nadd-beat quarter\n", "add-beat 4:1 quarter v2\n"},
        {"cursor 3:2\nrest\nselect 4:1-3\nrest\n", "rest 3:2\nrest 4:1-3\n"},
        {"select 3:8 - 4:2\nrhythm quarter\ndynamic pp\n",
         "rhythm 3:8-4:2 quarter\ndynamic 3:8-4:2 pp\n"},
        {"select 3-4\nremove-beats\n",
         "remove-beats 3:1-9\nremove-beats 4:1-9\nremove-beats 3:1 v2\nremove-beats 4:1 v2\n"},
        {"cursor 5\nadd-bars\nadd-bars 7 2\nrepeat-end 3\nsection B Bridge\ntempo 90\n",
         "add-bars 5\nadd-bars 7 2\nrepeat-end 5 3\nsection 5 B Bridge\ntempo 5 90\n"},
        {"select 5-8\ntime 2/4\nkey G\nendings 1-2\nclef bass\nremove-bars\n",
         "time 5-8 2/4\nkey 5-8 G\nendings 5-8 1-2\nclef 5-8 bass\nremove-bars 5-8\n"},
        {"cursor 5\nfeel triplet-8th\nselect 2\nfeel 7 triplet-8th\nbegin\nfree-time on\ncommit\n",
         "feel 5 triplet-8th\nfeel 7 triplet-8th\nfree-time 2 on\n"},
    };
    const Folder folder;
    const QString files[] = {folder.file("short.zarn"), folder.file("long.zarn")};
    for (const auto &[shortly, plainly] : scripts) {
        const auto save = [](const QString &file) { return "save " + file.toStdString() + "\n"; };
        const ToolRun shortRun = edit(romance(), shortly + save(files[0]));
        const ToolRun longRun = edit(romance(), plainly + save(files[1]));
        EXPECT_EQ(shortRun.code, 0) << shortly << shortRun.err;
        EXPECT_EQ(longRun.code, 0) << plainly << longRun.err;
        EXPECT_EQ(contentOf(files[0]), contentOf(files[1])) << shortly;
    }
}

TEST(Places, wrongPlacesAreNamedAndMoveNothing)
{
    const std::pair<const char *, const char *> wrong[] = {
        {"select trakc 1", "column 8: \"trakc\" is not a place; did you mean \"track\"?"},
        {"select 3:99", "column 8: voice 1 of bar 3 has no beat 99; it has 9"},
        {"select 99", "column 8: there is no bar 99; they go from 1 to 16"},
        {"select 3-1", "column 8: bars 3-1 end before they begin"},
        {"select staff", "column 13: the number of the staff is missing"},
        {"select string 2", "column 8: a selection has no string"},
        {"select track all voice 2", "column 24: all tracks are selected with all their voices"},
        {"select 3:1 v9", "column 12: there is no voice 9"},
        {"cursor 3:99", "column 8: there is no beat 99 here; they go from 1 to 9"},
        {"cursor strng 2", "column 8: \"strng\" is not a place; did you mean \"string\"?"},
        {"cursor string 9", "column 15: there is no string 9 here; they go from 1 to 6"},
        {"cursor first", "column 13: say what: first bar"},
        {"next baer", "column 6: \"baer\" is not what UNIT takes; did you mean \"bar\"?"},
        {"next bar 100", "column 1: there is no next bar after 16 of the 100 steps"},
        {"rest", "column 5: BEATS is missing: nothing is selected and the cursor is nowhere"},
        {"fret 1:1 3", "column 11: FRET is missing"},
        {"select 3:1\nrest t1", "leave t2 and the like out"},
        {"select 3:2 - 3:9\nremove-beats\nrest",
         "what was selected is not all there any more: 3:2 is gone"},
        {"cursor 3:9\nremove-beats 3:9\nrest", "voice 1 of bar 3 has no beat 9"},
    };
    for (const auto &[lines, message] : wrong) {
        const ToolRun run = edit(romance(), std::string(lines) + "\n");
        EXPECT_EQ(run.code, 1) << lines;
        EXPECT_TRUE(contains(run.err, message)) << lines << ": " << run.err;
    }
}

TEST(Places, theCursorIsHeardAndComesBackWithUndo)
{
    const ToolRun run = edit(romance(),
                             "cursor 16:1\nevents all\nremove-bars 10-16\nundo\nevents off\n"
                             "cursor\n");
    EXPECT_EQ(run.code, 0) << run.err;
    const std::string voice = " in track 1, voice 1, string 1";
    const auto moved = [&voice](const char *from, const char *to) {
        return "  event ScoreCursorMoved: from " + (from + voice) + ", to " + (to + voice)
            + "\n  event CommandExecuted\n";
    };
    EXPECT_TRUE(contains(run.out, moved("16:1", "9:1"))) << run.out;
    EXPECT_TRUE(contains(run.out, moved("9:1", "16:1"))) << run.out;
    EXPECT_TRUE(contains(run.out, "Cursor: 16:1")) << run.out;
}

TEST(Places, completionKnowsWhatIsLeftOut)
{
    using Words = std::vector<std::string>;
    EXPECT_EQ(zarn::tool::completions("clef te"), Words{"tenor"});
    EXPECT_EQ(zarn::tool::completions("next st"), (Words{"staff", "string"}));
    EXPECT_EQ(zarn::tool::completions("select 3 tr"), Words{"track"});
    EXPECT_EQ(zarn::tool::completions("cursor 3:2 la"), Words{"last"});
}

} // namespace
