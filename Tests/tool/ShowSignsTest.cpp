// SPDX-License-Identifier: MIT
#include "MarkedScore.h"
#include "ToolRun.h"

#include "common/CharacterRow.h"

#include <support/RandomScore.h>

#include <QRegularExpression>

namespace {

using namespace zarn;
using namespace zarn::test;

MarkedScore leadGuitar()
{
    MarkedScore score("guitar tempo=96: 3:5e 3:7 3:5 4:7 3:7q 2:8 "
                      "| 2:8e 2:10 1:7 1:9 2:8h "
                      "| 6:0e 6:0 6:0 r 6:3 6:0 [6:0 5:2]q "
                      "| [5:0 4:2 3:2 2:1]e 4:2 3:2 2:1 1:0q [1:12 2:12] "
                      "| 3:7h 3:5q 1:12e 1:15 | 1:15q 2:12 4:2 5:3");
    score.mark({"1.1.1 Hopo=true", "1.2.1 Hopo=true", "1.3.1 SlideOut=Shift",
                "1.5.1 Vibrato=Slight", "1.6.1 Bend=BendNRelease 0:0 15:4 30:4 45:0 60:0",
                "1.1.1 Accents=Accent", "1.2.1 Accents=Staccato", "1.6 PickStroke=Down",
                "1.1 SlurredToNext=true", "1.2 SlurredToNext=true", "1.2 SlurredToPrevious=true",
                "1.3 SlurredToPrevious=true"});
    score.mark({"2.1.1 SlideOut=Legato", "2.3.1 Bend=Bend 0:0 30:2 60:2",
                "2.4.1 Bend=PreBendNRelease 0:6 30:0 60:0", "2.5.1 SlideOut=Downwards",
                "2.5.1 Vibrato=Wide", "2.3.1 SlideIn=FromBelow", "2.4 PickStroke=Up"});
    for (const char *const place : {"3.1.1", "3.2.1", "3.3.1", "3.5.1", "3.6.1"})
        score.mark({(std::string(place) + " PalmMute=true").c_str()});
    score.mark({"3.7.1 Accents=HeavyAccent Tenuto", "3.1 Dynamic=F", "3.5 Hairpin=Decrescendo",
                "3.6 Hairpin=Decrescendo", "3.7 Hairpin=Decrescendo", "4.1 Dynamic=P",
                "4.1 Brush=Down", "4.1.1 LeftFingering=Open"});
    for (const char *const place : {"4.1.1", "4.2.1", "4.3.1", "4.4.1", "4.5.1"})
        score.mark({(std::string(place) + " LetRing=true").c_str()});
    score.mark({"4.6.1 Harmonic=Natural 2", "4.6.2 Harmonic=Natural 2", "5.1.1 Trill=2",
                "5.2.1 Harmonic=Artificial 2", "5.3.1 RightTap=true", "5.3.1 Hopo=true",
                "5.4 Tremolo=4", "6.1 WhammyBar=Dive 0:0 60:-4", "6.2.1 Harmonic=Pinch 3",
                "6.3 BassAttack=Slap", "6.4 BassAttack=Pop", "6.4 Fadding=FadeOut", "6.3 Text=rit.",
                "6.3 TextSpan=Begin", "6.4 TextSpan=End"});
    score.model().masterTrack()->masterBar(5)->setFermatas(
        {FermataMark::at(utils::rational(3), Fermata::Medium)});
    return score;
}

/// A singer's staff: words over a system break, a melisma, two verses, slurs that meet, a hairpin
/// over a bar line, a breath, a fermata at the end of a bar, the pedal of the pianist below.
MarkedScore song()
{
    MarkedScore score("piano 3/4 tempo=80: c5q d5 e5 | f5h e5q | d5q c5h | e5q f5 g5 "
                      "+ c3h. | f3h. | g3h. | c3h.");
    score.sing(1, 1, "Glo", Syllabic::Begin)
        .sing(1, 2, "ri", Syllabic::Middle)
        .sing(1, 3, "a", Syllabic::End, true)
        .sing(2, 2, "in")
        .sing(3, 1, "ex", Syllabic::Begin)
        .sing(3, 2, "cel", Syllabic::Middle)
        .sing(4, 1, "sis", Syllabic::End)
        .sing(4, 2, "De", Syllabic::Begin)
        .sing(4, 3, "o", Syllabic::End);
    score.sing(1, 1, "Hark", Syllabic::Single, false, 1)
        .sing(1, 2, "the", Syllabic::Single, false, 1)
        .sing(1, 3, "heralds", Syllabic::Single, false, 1)
        .sing(2, 2, "sing", Syllabic::Single, false, 1);
    score.mark({"1.1 Dynamic=P",
                "1.2 Hairpin=Crescendo",
                "1.3 Hairpin=Crescendo",
                "2.1 Hairpin=Crescendo",
                "2.2 Dynamic=F",
                "3.1 AttackDynamic=sfz",
                "3.2 Hairpin=Swell",
                "4.1 Hairpin=Decrescendo",
                "4.2 Hairpin=Decrescendo",
                "4.3 Hairpin=Decrescendo",
                "2.2 Breath=Breath",
                "1.3 SlurredToNext=true",
                "2.1 SlurredToPrevious=true",
                "2.1 SlurredToNext=true",
                "2.2 SlurredToPrevious=true",
                "2.2 SlurBegins=true",
                "2.2 SlurredToNext=true",
                "3.1 SlurredToPrevious=true",
                "4.1.1 Ornament=Turn",
                "4.3.1 Accents=Staccato Tenuto",
                "4.2 Text=dolce"});
    Track &piano = *score.model().track(0);
    const auto left = [&](unsigned bar) { return piano.bar(bar, 1)->voice(0)->beat(0); };
    left(0)->setPedal(PedalChange::Start);
    left(1)->setPedal(PedalChange::Change);
    left(3)->setPedal(PedalChange::Stop);
    score.model().masterTrack()->masterBar(3)->setFermatas(
        {FermataMark::at(utils::rational(2), Fermata::Long)});
    score.model().masterTrack()->masterBar(1)->setBarLine(zarn::BarLine::Dashed);
    return score;
}

TEST(ShowSigns, wordsStandUnderTheirNotesAndLinesGoOnOverBarsAndSystems)
{
    expectGolden("song.txt", song().picture(46));
}

/// Two voices for fingers: plucking and stopping fingers, a barre, an arpeggio, a rasgueado, golpe.
TEST(ShowSigns, fingersOfBothHandsStandUnderTheStrings)
{
    MarkedScore score("guitar: 1:5e 2:5 3:5 2:5 1:7 2:5 3:5 2:6 & 6:5h 5:7 "
                      "| [6:0 5:2 4:2 3:1]q [6:0 5:2 4:2 3:1] r [6:0 5:2 4:2 3:1]");
    score.mark({"1.1.1 RightFingering=#4", "1.2.1 RightFingering=#3", "1.3.1 RightFingering=#2",
                "1.4.1 RightFingering=#3", "1.1.1/2 RightFingering=#1", "1.5.1 LeftFingering=#4",
                "1.8.1 LeftFingering=#3", "2.1.2 LeftFingering=#3", "2.1.3 LeftFingering=#4",
                "2.1.4 LeftFingering=#2", "2.1.1 LeftFingering=Open", "2.1 Arpeggio=Up",
                "2.2 Rasgueado=ami_1", "2.4 Golpe=Finger", "2.4 Breath=Caesura",
                "1.1/2 Hairpin=Crescendo"});
    for (const char *const place : {"1.1", "1.2", "1.3", "1.4", "1.6", "1.7"})
        score.mark({(std::string(place) + " Barre=5").c_str()});
    expectGolden("fingers.txt", score.picture(80));
}

TEST(ShowSigns, nestedSlursLieInEachOther)
{
    MarkedScore score("piano: c4e d4 e4 f4 g4 f4 e4 d4 | c4w");
    score.mark({"1.1 SlurredToNext=true"});
    for (unsigned beat = 2; beat <= 8; ++beat) {
        score.beat(1, beat).setSlurredToPrevious(true);
        score.beat(1, beat).setSlurredToNext(true);
    }
    score.beat(2, 1).setSlurredToPrevious(true);
    score.beat(1, 2).setSlurEnds({{1, true}});
    score.beat(1, 3).setSlurEnds({{1, false}, {2, true}});
    score.beat(1, 5).setSlurEnds({{2, false}, {1, true}});
    score.beat(2, 1).setSlurEnds({{1, false}});
    const QStringList lines = QString::fromStdString(score.picture(80)).split(QLatin1Char('\n'));
    const auto arcs = [&](int line) { return lines.at(line).simplified(); };
    const int first = lines.indexOf(QRegularExpression(QStringLiteral("^ *\u256d.*")));
    ASSERT_GE(first, 0) << score.picture(80);
    EXPECT_EQ(arcs(first).count(QChar(0x256d)), 1) << "the outer slur on top";
    EXPECT_EQ(arcs(first + 1).count(QChar(0x256d)) + arcs(first + 2).count(QChar(0x256d)), 3)
        << score.picture(80);
}

/// What a beat can carry, in any company: at every width the lines end inside the page, and what is
/// written in words stands whole somewhere.
TEST(ShowSigns, anythingThatScoresCarryIsDrawnInsideThePage)
{
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        const auto model = ::test::RandomScore(seed).make();
        tool::ShownPart part;
        part.lastBar = model->masterTrack()->masterBarCount();
        for (const int width : {24, 45, 80, 300})
            for (const bool asUtf8 : {true, false}) {
                const std::string drawn =
                    tool::pictureOf(*model, part, tool::Terminal(width, asUtf8, false));
                for (const QString &line : QString::fromStdString(drawn).split(QLatin1Char('\n')))
                    ASSERT_LE(tool::displayWidth(line), width)
                        << line.toStdString() << " seed " << seed;
            }
    }
}

TEST(ShowSigns, theLegendNamesWhatIsUsedAndNothingElse)
{
    MarkedScore plain("guitar: 3:5q 3:7 2:5 2:8");
    const auto legend = [](MarkedScore &score) {
        return QString::fromStdString(score.picture(200)).section(QStringLiteral("Signs: "), 1);
    };
    EXPECT_EQ(legend(plain).trimmed(), QStringLiteral("q quarter"));
    plain.mark({"1.1.1 PalmMute=true", "1.2.1 RightTap=true"});
    EXPECT_EQ(legend(plain).trimmed(), QStringLiteral("q quarter, PM palm mute, T tapped"));
}

TEST(ShowSigns, wordsThatMeetOnAShortNoteStandAboveEachOther)
{
    MarkedScore score("guitar: 3:5s 3:7 3:5 3:7 3:5q 3:5h");
    score.mark({"1.1 Text=con fuoco", "1.2 Text=poco rit.", "1.3 Text=a tempo",
                "1.1 WhammyBar=Dip 0:0 15:-2 30:0 60:0", "1.2 Wah=Open", "1.1 Dynamic=FF",
                "1.2 Dynamic=PP", "1.3 Dynamic=MF"});
    const std::string drawn = score.picture(80);
    for (const char *const words :
         {"con fuoco", "poco rit.", "a tempo", "bar dip -\u00bd", "wah open", "ff", "pp", "mf"})
        EXPECT_TRUE(contains(drawn, words)) << words << '\n' << drawn;
}

TEST(ShowSigns, aLeadGuitaristReadsHowEachNoteIsPlayed)
{
    expectGolden("lead.txt", leadGuitar().picture(80));
    expectGolden("lead-ascii.txt", leadGuitar().picture(80, false));
}

} // namespace
