// SPDX-License-Identifier: MIT
#include <support/NativeDocument.h>
#include <support/RandomScore.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

#include <gtest/gtest.h>

#include <limits>

using namespace zarn;

namespace {

void expectRoundTrip(const ScoreModel &model)
{
    const std::string document = test::writeNative(model);
    io::ImportReport report;
    const auto copy = test::readNative(document, report);
    EXPECT_TRUE(*copy == model) << document;
    EXPECT_EQ(test::writeNative(*copy), document);
    for (const io::ImportProblem &problem : report.problems())
        EXPECT_EQ(problem.text.rfind("a tie ", 0), 0u)
            << "random notes are tied to anything: " << problem.toString();
    EXPECT_EQ(copy->masterTrack()->playlist(), model.masterTrack()->playlist());
}

} // namespace

TEST(NativeRoundTrip, everyAttributeOfEveryNodeComesBack)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const auto model = test::RandomScore(seed).make(seed % 4, seed % 7);
        ASSERT_EQ(checkModel(*model), std::vector<std::string>());
        expectRoundTrip(*model);
    }
}

TEST(NativeRoundTrip, scoresOfTheTextNotationComeBack)
{
    for (const char *text : {
             "",
             "guitar:",
             "guitar 4/4: 6:3q 5:2e 5:0e [4:0 3:0 2:0]h | rw",
             "guitar(D2 A2 D3 G3 B3 E4) capo=2 3/4 key=F#m: |: 6:0h. & 1:0q~ 1:0 2:x :|x3 | rh.",
             "piano 6/8: c5e/3 d5 e5~ | e5h. + c3h. | c3; drums: kickq [hat snare] | ride",
         }) {
        SCOPED_TRACE(text);
        ScoreModel model;
        io::readScoreText(text, model);
        expectRoundTrip(model);
    }
}

TEST(NativeRoundTrip, whatIsAtItsDefaultTakesNoRoom)
{
    EXPECT_EQ(test::writeNative(ScoreModel()), "{\"zarn\":\"1.6\",\"master\":{}}\n");
    ScoreModel model;
    io::readScoreText("voice: c4q d4 | r", model);
    const std::string document = test::writeNative(model);
    EXPECT_NE(document.find("\n{\"voices\":[{\"beats\":[{\"notes\":[{\"midi\":60,\"spelling\":"
                            "\"C\"}]},{\"notes\":[{\"midi\":62,\"spelling\":\"D\"}]}]}]}"),
              std::string::npos)
        << document;
}

TEST(NativeRoundTrip, equalModelsGiveEqualBytesWhateverTheySlotsHold)
{
    ScoreModel model;
    io::readScoreText("guitar: 6:3q", model);
    const std::string document = test::writeNative(model);
    const auto bar = model.track(0)->bar(0, 0);
    bar->ensureVoice(1); // an empty voice is as good as none
    bar->ensureVoice(3);
    EXPECT_EQ(test::writeNative(model), document);
    bar->voice(1)->addBeat(std::make_shared<Beat>());
    EXPECT_NE(test::writeNative(model), document);
}

TEST(NativeRoundTrip, numbersComeBackExactlyAndShort)
{
    ScoreModel model;
    for (const double tone : {440.0, 440.1, 1234.0 / 3.0, 220.0, 880.0, 442.00000000000006}) {
        model.setConcertTone(tone);
        EXPECT_EQ(test::readNative(test::writeNative(model))->concertTone(), tone);
    }
    auto knob = std::make_unique<DSPParamAutomation>();
    DSPParamAutomation *const automation = knob.get();
    model.masterTrack()->insertAutomation(std::move(knob));
    for (const float value :
         {0.76f, 1.0f / 3.0f, std::numeric_limits<float>::max(), -std::numeric_limits<float>::max(),
          std::numeric_limits<float>::denorm_min(), 16777217.0f}) {
        automation->setValue(value);
        const auto copy = test::readNative(test::writeNative(model));
        EXPECT_EQ(copy->masterTrack()->automations(automation->type()).front()->value(), value);
    }
    automation->setValue(0.76f);
    EXPECT_NE(test::writeNative(model).find("\"value\":0.76}"), std::string::npos);
}

TEST(NativeRoundTrip, theEndsOfWidthsComeBack)
{
    ScoreModel model;
    model.insertEmptyBarColumns(0, 1);
    for (const float ratio : {lowestLayoutRatio, 0.7F, highestLayoutRatio}) {
        model.masterTrack()->masterBar(0)->setLayoutRatio(ratio);
        EXPECT_EQ(
            test::readNative(test::writeNative(model))->masterTrack()->masterBar(0)->layoutRatio(),
            ratio);
    }
}

TEST(NativeRoundTrip, aTrackTemplateIsADocumentWithoutBars)
{
    const auto model = test::readNative(
        R"({"zarn": "1.0", "tracks": [{"type": "nylonGuitar", "name": "Guitar",
            "sounds": [{"name": "Nylon", "program": 24}],
            "staves": [{"tuning": {"instrument": "Guitar", "strings": [40, 45, 50, 55, 59, 64]}}]}]})");
    ASSERT_EQ(model->trackCount(), 1u);
    EXPECT_EQ(model->track(0)->type(), InstrumentSet::nylonGuitar);
    EXPECT_EQ(model->track(0)->sounds().at(0)->midiSound().program(), 24);
    EXPECT_EQ(model->track(0)->staff(0)->tuning().stringCount(), 6u);
    EXPECT_EQ(model->track(0)->barCount(), 0u);
}

TEST(NativeRoundTrip, bytesThatAreNoTextAreReplacedSoThatTheDocumentCanBeRead)
{
    ScoreModel model;
    model.setScoreProperty(ScoreProperty::Title, "a\xFF\x62");
    EXPECT_EQ(test::readNative(test::writeNative(model))->property(ScoreProperty::Title),
              "a\uFFFD\x62");
}

TEST(NativeRoundTrip, whatCouldNotBeReadIsNotWritten)
{
    ScoreModel model;
    io::readScoreText("guitar: r | r; bass: r | r", model);
    model.track(1)->staff(0)->addEmptyBars(1);
    try {
        test::writeNative(model);
        FAIL() << "a ragged score was written";
    } catch (const CoreException &error) {
        EXPECT_NE(error.message().find("/tracks/1/staves/0/bars"), std::string::npos);
    }
    model.track(1)->staff(0)->removeBar(2);
    model.masterTrack()->setCoda(2);
    EXPECT_THROW(test::writeNative(model), CoreException);
    model.masterTrack()->setCoda(1);
    model.setConcertTone(std::numeric_limits<double>::quiet_NaN());
    EXPECT_THROW(test::writeNative(model), CoreException);
}
