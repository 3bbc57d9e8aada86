// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "common/Documents.h"
#include "common/Terminal.h"
#include "show/ShowCommand.h"

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/SheetPainter.h>
#include <ZarnCore/io/sheet/Systems.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QRegularExpression>

namespace {

using namespace zarn;
using namespace zarn::test;

/// The whole of a score written in the short notation, drawn at a width.
std::string picture(const ScoreModel &model, int width, bool asUtf8 = true)
{
    sheet::ShownPart part;
    part.lastBar = model.masterTrack()->masterBarCount();
    return tool::pictureOf(model, part, tool::Terminal(width, asUtf8, false));
}

std::unique_ptr<Score> scoreOf(const char *notation)
{
    return ZarnCoreUtils::make_from_string(notation);
}

/// Two voices that cross, ties, a dead and a ghost note, grace notes, tuplets in tuplets, repeats
/// with endings, directions, a section, a change of time, key and tempo, swing.
std::unique_ptr<Score> everythingForGuitar()
{
    auto score = scoreOf("guitar capo=2 key=Em tempo=96: |: \"Em\"1:7e/3 2:0 3:0 1:7q~ 1:7h & 6:0w "
                         "| \"Am7/G\"[1:0 2:1 3:0 4:2 5:0]q. 5:xe rh & 1:3h 1:5h"
                         "| 3/4 4:12e/3 4:12 4:12 4:12 4:12 3:1h/3 2:1q/3 :|x3 key=G 2:3h.");
    const ScoreModel &model = *score->scoreModel();
    model.track(0)->bar(1, 0)->voice(0)->beat(0)->note(2)->setGhost(true);
    for (unsigned beat = 0; beat < 5; ++beat) {
        const auto nested = model.track(0)->bar(2, 0)->voice(0)->beat(beat);
        RhythmValue rhythm = nested->rhythmValue();
        rhythm.setSecondaryTupletRatio({5, 4});
        nested->setRhythmValue(rhythm);
    }
    const auto grace = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    grace->setGraceType(GraceType::BeforeBeat);
    const auto graceNote = std::make_shared<Note>(66);
    graceNote->setString(4);
    graceNote->setFret(7);
    grace->addNote(graceNote);
    model.track(0)->bar(3, 0)->voice(0)->insertBeat(0, grace);
    model.track(0)->bar(3, 0)->voice(0)->beat(1)->setDynamic(NoteDynamic::Value::FF);
    model.track(0)->bar(3, 0)->voice(0)->beat(1)->setText("let ring");
    EXPECT_TRUE(score->setMasterBarSection(1, QStringLiteral("B"), QStringLiteral("Bridge")));
    EXPECT_TRUE(score->setBarAlternateEndings(1, 1, 3));
    EXPECT_TRUE(score->setBarAlternateEndings(2, 2, 4));
    EXPECT_TRUE(score->setBarDirection(DirectionMark::Segno, 1));
    EXPECT_TRUE(score->setBarDirection(DirectionMark::DaSegnoAlFine, 3));
    EXPECT_TRUE(score->setMasterTripletFeel(1, 1, TripletFeel::Triplet8th));
    return score;
}

TEST(Show, everySignOfAGuitarPieceStandsWhereAPlayerLooksForIt)
{
    const auto score = everythingForGuitar();
    expectGolden("guitar.txt", picture(*score->scoreModel(), 78));
    expectGolden("guitar-ascii.txt", picture(*score->scoreModel(), 78, false));
}

TEST(Show, tracksOfABandStandUnderEachOtherBeatByBeat)
{
    const ToolRun run =
        runTool({QStringLiteral("show"), saints(), QStringLiteral("--bars"), QStringLiteral("1-3"),
                 QStringLiteral("--width"), QStringLiteral("78")});
    EXPECT_EQ(run.code, 0) << run.err;
    expectGolden("saints.txt", run.out);
}

TEST(Show, noteNamesFollowSpellingAndKeyAndStackAsChords)
{
    const auto score = scoreOf("piano key=Ab: [c4 eb4 ab4]q bb3 d#5 r + c3w & ab2h g2 ");
    expectGolden("piano.txt", picture(*score->scoreModel(), 60));
}

TEST(Show, oneTrackAndSomeBarsAloneAreShownOnRequest)
{
    const ToolRun run = runTool({QStringLiteral("show"), saints(), QStringLiteral("--track"),
                                 QStringLiteral("3"), QStringLiteral("-b"), QStringLiteral("5")});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(contains(run.out, "\n        5\n")) << run.out;
    EXPECT_TRUE(contains(run.out, "G2 "));
    for (const char *const other : {"Tpt.", "Gtr.", "Dr."})
        EXPECT_FALSE(contains(run.out, other)) << other;
}

TEST(Show, oneVoiceAndBarsPastTheEndAreShownOnRequest)
{
    const ToolRun run =
        runTool({QStringLiteral("show"), romance(), QStringLiteral("--voice"), QStringLiteral("2"),
                 QStringLiteral("--bars"), QStringLiteral("15-40")});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(contains(run.err, "the score ends with bar 16")) << run.err;
    EXPECT_TRUE(contains(run.out, "voice 2")) << run.out;
    EXPECT_FALSE(contains(run.out, "e  e  e")) << run.out;
}

TEST(Show, freeTimeBeginsAndEndsAndAChordStandsOnce)
{
    const auto score = scoreOf("piano: \"Am\"c4w & \"Am\"a4w | c4w + \"Am\"c3w | c3w");
    ASSERT_TRUE(score->setMasterBarFreeTime(0, 0, true));
    const std::string drawn = picture(*score->scoreModel(), 80);
    EXPECT_TRUE(contains(drawn, "free time")) << drawn;
    EXPECT_TRUE(contains(drawn, "in time")) << drawn;
    EXPECT_EQ(drawn.find("Am"), drawn.rfind("Am")) << drawn;
}

TEST(Show, bracketsOfTupletsAreWholeHoweverShortAndOpenWhereTheLineBreaks)
{
    const std::string drawn =
        picture(*scoreOf("piano: c4q/7:3 d4 e4h d4q/5:3 c4 c4 c4 c4")->scoreModel(), 80);
    EXPECT_TRUE(contains(drawn, "\u250c7:3\u2500") || contains(drawn, "\u250c7:3\u2510")) << drawn;
    const std::string broken =
        picture(*scoreOf("piano 3/4: c4e/9:6 d4 e4 c4 d4 e4 c4 d4 e4")->scoreModel(), 30);
    EXPECT_TRUE(contains(broken, "9:6\u2500")) << broken;
    EXPECT_TRUE(contains(broken, "\u25009:6")) << broken;
}

/// Laws that every picture keeps, whatever the music and the width.
class ShowLaws : public ::testing::TestWithParam<const char *> {
protected:
    static QStringList linesOf(const std::string &text)
    {
        return QString::fromStdString(text).split(QLatin1Char('\n'));
    }
};

TEST_P(ShowLaws, noLineIsWiderThanAsked)
{
    const tool::Terminal terminal(80, true, false);
    const auto document = tool::openDocument(sample(GetParam()).toStdString(), terminal);
    for (const int width : {20, 33, 47, 60, 80, 121, 400})
        for (const QString &line : linesOf(picture(*document.model, width)))
            ASSERT_LE(line.toUcs4().size(), width) << line.toStdString();
}

TEST_P(ShowLaws, everyColumnStandsOnceAndInsideThePageAtEveryWidth)
{
    const tool::Terminal terminal(80, true, false);
    const auto document = tool::openDocument(sample(GetParam()).toStdString(), terminal);
    const sheet::Glyphs &glyphs = sheet::Glyphs::utf8();
    sheet::ShownPart part;
    part.lastBar = 100;
    sheet::Legend legend;
    const sheet::Sheet sheet = sheet::buildSheet(*document.model, part, glyphs, legend);
    std::vector<const sheet::ColumnKey *> expected;
    for (const sheet::SheetBar &bar : sheet.bars)
        for (const auto &[key, cells] : bar.columns)
            expected.push_back(&key);
    for (const int width : {24, 31, 40, 80, 160, 1000}) {
        std::vector<const sheet::ColumnKey *> placed;
        for (const sheet::System &system : sheet::breakIntoSystems(sheet, glyphs, 9, width)) {
            int pen = 9;
            for (const sheet::Segment &segment : system.segments) {
                EXPECT_GE(segment.left, pen);
                for (const sheet::PlacedColumn &column : segment.columns) {
                    placed.push_back(column.key);
                    EXPECT_GE(column.x, pen);
                    pen = column.x + column.width;
                }
            }
            EXPECT_LT(pen, width);
        }
        EXPECT_EQ(placed, expected) << width;
    }
}

TEST_P(ShowLaws, barLinesOfASystemStandUnderEachOther)
{
    const tool::Terminal terminal(80, true, false);
    const auto document = tool::openDocument(sample(GetParam()).toStdString(), terminal);
    const auto barLines = [](const QString &line) {
        QList<int> places;
        for (int i = 0; i < line.size(); ++i)
            if (line.at(i) == QChar(0x2502) || line.at(i) == QChar(0x2503))
                places.append(i);
        return places;
    };
    QList<int> system;
    static const QRegularExpression numbers(QStringLiteral("^ +[0-9]+( +[0-9]+)*$"));
    for (const QString &line : linesOf(picture(*document.model, 100))) {
        if (numbers.match(line).hasMatch())
            system.clear();
        const QList<int> places = barLines(line);
        if (system.isEmpty())
            system = places;
        EXPECT_TRUE(places.isEmpty() || places == system) << line.toStdString();
    }
}

TEST_P(ShowLaws, asciiIsAscii)
{
    const ToolRun run =
        runTool({QStringLiteral("show"), sample(GetParam()), QStringLiteral("--ascii")});
    EXPECT_EQ(run.code, 0);
    for (const char byte : run.out)
        ASSERT_TRUE((byte >= 0x20 && byte < 0x7f) || byte == '\n');
}

INSTANTIATE_TEST_SUITE_P(Samples, ShowLaws,
                         ::testing::Values("romance-guitar-study.musicxml",
                                           "saints-band.musicxml"));

TEST(Show, namesFromADocumentCannotSteerTheTerminal)
{
    const auto score = scoreOf("piano: c4");
    score->scoreModel()->track(0)->setName("\x1b[2J\x07 \xc2\x9b piano");
    score->scoreModel()->setScoreProperty(ScoreProperty::Title, "\x1b]0;title\x07");
    const std::string drawn = picture(*score->scoreModel(), 80);
    for (const char byte : drawn)
        ASSERT_TRUE(static_cast<unsigned char>(byte) >= 0x20 || byte == '\n');
    EXPECT_FALSE(contains(drawn, "\xc2\x9b"));
}

TEST(Show, aScoreWithoutTracksOrBarsIsNoError)
{
    const Score empty;
    EXPECT_NO_THROW(picture(*empty.scoreModel(), 80));
    Score barsOnly;
    ASSERT_TRUE(barsOnly.createBars(0, 3));
    EXPECT_NO_THROW(picture(*barsOnly.scoreModel(), 80));
}

TEST(Show, barsThatRepeatAreSignsUntilTheyAreChanged)
{
    const auto score = scoreOf("guitar: 1:1q 1:2 1:3 1:4 | 1:1q 1:2 1:3 1:4 | 2:1h 2:3h "
                               "| 1:1q 1:2 1:3 1:4 | 2:1h 2:3h");
    Track &track = *score->scoreModel()->track(0);
    track.bar(1)->setSimileMark(SimileMark::Simple);
    track.bar(3)->setSimileMark(SimileMark::FirstOfDouble);
    track.bar(4)->setSimileMark(SimileMark::SecondOfDouble);
    const auto frets = [&] {
        const std::string drawn = picture(*score->scoreModel(), 200);
        return std::make_pair(std::count(drawn.begin(), drawn.end(), '4'),
                              QString::fromStdString(drawn).count(QStringLiteral("%%")));
    };
    const auto whole = frets();
    EXPECT_EQ(whole.second, 2 + 1) << "and once in the legend";
    track.bar(3)->voice(0)->beat(3)->note(0)->setFret(14);
    EXPECT_EQ(frets().first, whole.first + 1) << "the changed bar is written out";
    EXPECT_EQ(frets().second, 1 + 1);
}

} // namespace
