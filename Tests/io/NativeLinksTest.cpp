// SPDX-License-Identifier: MIT
#include "support/NativeDocument.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

using namespace zarn;

/// Links that a document has only one end of are left out, and told with their bar; the others
/// stay as they were.
TEST(NativeLinks, brokenOnesAreLeftOutAndTold)
{
    const SmallScore small;
    small.beat(0, 3).setSlurredToNext(true);
    small.beat(1, 0).setSlurredToPrevious(true);
    small.beat(1, 0).setSlurBegins(true);
    small.beat(2, 1).setSlurredToPrevious(true);
    small.beat(4, 3).notes()[0]->setHopo(true);
    small.beat(3, 3).notes()[0]->setSlideOut(SlideOut::Downwards);
    io::ImportReport report;
    const auto model = test::readNative(test::writeNative(small.model), report);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    const auto beat = [&](unsigned bar, unsigned number) -> const Beat & {
        return *model->track(0)->bar(bar)->voice(0)->beats()[number];
    };
    EXPECT_TRUE(beat(0, 3).isSlurredToNext() && beat(1, 0).isSlurredToPrevious());
    EXPECT_FALSE(beat(1, 0).beginsSlur());
    EXPECT_FALSE(beat(2, 1).isSlurredToPrevious());
    EXPECT_FALSE(beat(4, 3).notes()[0]->isHopo());
    EXPECT_EQ(beat(3, 3).notes()[0]->slideOut(), SlideOut::Downwards);
    EXPECT_TRUE(report.hasProblem("part 1, bar 2: the begin of a slur where there is none"));
    EXPECT_TRUE(report.hasProblem("part 1, bar 3: a slur that comes from no beat was left out"));
    EXPECT_TRUE(report.hasProblem("part 1, bar 5: a hammer-on or pull-off that leads to no note"));
}

/// Pedals, lines behind words, numbered slurs and words of lyrics are mended the same way.
TEST(NativeLinks, brokenSpansAreMendedAndTold)
{
    const SmallScore small;
    small.beat(0, 1).setPedal(PedalChange::Stop);
    small.beat(1, 0).setPedal(PedalChange::Start);
    small.beat(1, 2).setPedal(PedalChange::Start);
    small.beat(2, 0).setTextSpan(TextSpan::Begin);
    small.beat(3, 0).setSlurEnds({{5, false}, {6, true}});
    small.beat(3, 2).setSlurEnds({{6, false}});
    small.beat(0, 0).setLyrics({{0, Syllabic::Begin, true, "A"}});
    small.beat(0, 1).setLyrics({{0, Syllabic::Single, false, "men"}});
    small.beat(4, 0).setLyrics({{0, Syllabic::Begin, true, "Hal"}});
    io::ImportReport report;
    const auto model = test::readNative(test::writeNative(small.model), report);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    const auto beat = [&](unsigned bar, unsigned number) -> const Beat & {
        return *model->track(0)->bar(bar)->voice(0)->beats()[number];
    };
    EXPECT_EQ(beat(0, 1).pedal(), PedalChange::None);
    EXPECT_EQ(beat(1, 0).pedal(), PedalChange::Start) << "held to the end";
    EXPECT_EQ(beat(1, 2).pedal(), PedalChange::Change);
    EXPECT_EQ(beat(2, 0).textSpan(), TextSpan::None);
    EXPECT_EQ(beat(3, 0).slurEnds(), (SlurEnds{{6, true}}));
    EXPECT_EQ(beat(0, 0).lyrics(), (Syllables{{0, Syllabic::Single, false, "A"}}));
    EXPECT_EQ(beat(4, 0).lyrics(), small.beat(4, 0).lyrics()) << "waits for notes";
    for (const char *problem :
         {"part 1, bar 1: a pedal that is lifted without being down was mended",
          "part 1, bar 2: a pedal that is pressed while it is down was mended",
          "part 1, bar 3: a line behind words that nothing ends was mended",
          "part 1, bar 4: a numbered slur that comes from no beat was mended",
          "part 1, bar 1: a word that breaks off before its last syllable was mended"})
        EXPECT_TRUE(report.hasProblem(problem)) << problem;
}

/// Whatever its voices say, a staff has one pedal: at one time one of them moves it.
TEST(NativeLinks, twoVoicesMoveOnePedalOnceAtATime)
{
    const SmallScore small;
    Voice &second = *small.model.track(0)->bar(1)->ensureVoice(1);
    for (int i = 0; i < 4; ++i)
        second.addBeat(std::make_shared<Beat>());
    small.beat(1, 0).setPedal(PedalChange::Start);
    second.beat(0)->setPedal(PedalChange::Start);
    small.beat(1, 2).setPedal(PedalChange::Start);
    second.beat(2)->setPedal(PedalChange::Stop);
    io::ImportReport report;
    const auto model = test::readNative(test::writeNative(small.model), report);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    std::vector<PedalChange> pedals;
    for (const auto &voice : {model->track(0)->bar(1)->voice(0), model->track(0)->bar(1)->voice(1)})
        for (const unsigned beat : {0U, 2U})
            pedals.push_back(voice->beat(beat)->pedal());
    EXPECT_EQ(pedals,
              std::vector<PedalChange>(
                  {PedalChange::Start, PedalChange::None, PedalChange::None, PedalChange::Change}))
        << "lifting stands in front of pressing";
    EXPECT_TRUE(report.hasProblem("part 1, bar 2: a second change of the pedal at one time"));
}

/// Groups and sounds that a document names and does not have.
TEST(NativeLinks, groupsAndForcedSoundsBeyondTheEndAreMendedAndTold)
{
    const auto read = [](const std::string &members, io::ImportReport &report) {
        return test::readNative("{\"zarn\":\"1.2\"," + members + "}", report);
    };
    io::ImportReport report;
    const auto model = read(R"("trackGroups":[{"first":0,"last":7},{"first":1,"last":1},)"
                            R"({"first":2,"last":2}],"tracks":[{"forcedSound":3},{}])",
                            report);
    ASSERT_EQ(model->trackGroups().size(), 2U);
    EXPECT_EQ(model->trackGroups()[0].last, 1U);
    EXPECT_EQ(model->track(0)->forcedSoundIndex(), TrackSettings::NoForcedSound);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    EXPECT_TRUE(report.hasProblem("/trackGroups/0: the group reaches to track 8 of 2; it ends"));
    EXPECT_TRUE(
        report.hasProblem("/trackGroups/2: the group reaches to track 3 of 2; it was left"));
    EXPECT_TRUE(report.hasProblem("part 1: sound 4 of 0 is to be played throughout"));
}
