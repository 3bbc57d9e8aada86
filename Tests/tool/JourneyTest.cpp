// SPDX-License-Identifier: MIT
// The way of a guitarist: a score from elsewhere is opened, read, changed, saved and opened again.
#include "ToolRun.h"

#include <QFileInfo>

namespace {

using namespace zarn::test;

/// Shows, edits, saves and reads again; what was edited shows as it was edited, and all of it is
/// undone to the byte.
class Journey {
public:
    explicit Journey(const QString &score) : _score(score)
    {
        const ToolRun info = runTool({QStringLiteral("info"), score});
        EXPECT_EQ(info.code, 0) << info.err;
        EXPECT_TRUE(contains(info.out, "Problems: none")) << info.out;
        _before = shown(score);
    }

    void edit(const std::string &lines)
    {
        const QString edited = _folder.file("edited.zarn");
        const ToolRun run = runTool(
            {QStringLiteral("edit"), _score, QStringLiteral("-o"), _folder.file("undone.zarn")},
            lines + "save " + edited.toStdString() + "\nundo all\ncompare\n");
        EXPECT_EQ(run.code, 0) << run.err << run.out;
        EXPECT_EQ(shown(_folder.file("undone.zarn")), _before);
        _after = shown(edited);
        const QString again = _folder.file("again.zarn");
        EXPECT_EQ(runTool({QStringLiteral("convert"), edited, again}).code, 0);
        EXPECT_EQ(contentOf(again), contentOf(edited));
        const ToolRun info = runTool({QStringLiteral("info"), edited});
        EXPECT_TRUE(contains(info.out, "Problems: none")) << info.out;
    }

    const std::string &before() const { return _before; }
    const std::string &after() const { return _after; }

private:
    static std::string shown(const QString &score)
    {
        const ToolRun run = runTool({QStringLiteral("show"), score});
        EXPECT_EQ(run.code, 0) << run.err;
        return run.out;
    }

    QString _score;
    Folder _folder;
    std::string _before;
    std::string _after;
};

} // namespace

TEST(Journey, aSongWithBendsSlidesAndWords)
{
    Journey song(sample("amazing-grace-voice-and-guitar.musicxml"));
    for (const char *sign : {"A-    ma-     zing", "0h───2", "1p──0", "2b1", "2b½", "3/──8", "2~",
                             "me!_", "5/ 7\\ slide to the next note"})
        EXPECT_TRUE(contains(song.before(), sign)) << sign << '\n' << song.before();
    song.edit("fret 3:1 6 5 t2\n"
              "bend 3:2 1/2 release --string 2 t2\n"
              "hammer 15:2 --string 2 t2\n"
              "palm-mute 5:1-3 t2\n"
              "remove-beats 2:1 t1\n" // the syllable in the middle of a word
              "text 9:1 rit. t2\n"
              "set 9:1-5 text-span begin t2\n"
              "set 10:1-3 pedal start t2\n"
              "remove-bars 12\n"
              "replace \""
              + romance().toStdString()
              + "\"\n"
                "undo\n"
                "transpose-score 2\n");
    for (const char *sign :
         {"A-    zing", "2b½r─2", "PM────────┤", "7───────", "rit.─", "Ped.", "*", "A major"})
        EXPECT_TRUE(contains(song.after(), sign)) << sign << '\n' << song.after();
}

TEST(Journey, aSongOfTheNineteenthCentury)
{
    const QString chosen = qEnvironmentVariable("ZARN_SCORES");
    const QString song =
        (chosen.isEmpty() ? QStringLiteral(ZARN_SOURCE_DIR "/../shared/scores") : chosen)
        + QStringLiteral("/musicxml/openscore-zumsteeg-guitar-tab.musicxml");
    if (!QFileInfo::exists(song))
        GTEST_SKIP() << "the real scores are not here; set ZARN_SCORES to their folder";
    Journey journey(song);
    journey.edit("bend 2:4 full --string 2 t2\n"
                 "remove-bars 3\n"
                 "copy-bars 2-4\n"
                 "paste 6\n"
                 "transpose 2 refinger t2\n"
                 "palm-mute 2:1-4 t2\n");
    EXPECT_NE(journey.before(), journey.after());
}
