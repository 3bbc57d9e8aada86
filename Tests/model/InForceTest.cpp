// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/form/ZarnInForce.h>

#include <gtest/gtest.h>

using namespace zarn;

namespace {

void addTempo(MasterTrack &track, unsigned bar, float position, float value, TempoUnit unit)
{
    auto tempo = std::make_unique<TempoAutomation>();
    tempo->setIndex(bar);
    tempo->setPosition(position);
    tempo->setValue(value);
    tempo->setUnit(static_cast<int>(unit));
    ASSERT_TRUE(track.insertAutomation(std::move(tempo)));
}

TEST(InForce, aTempoHoldsFromItsPlaceUntilTheNextAndTheSettingsBeforeAll)
{
    MasterTrack track;
    track.addEmptyMasterBars(4);
    EXPECT_FALSE(tempoInForce(track, 0).isGiven);
    EXPECT_FALSE(temposOf(track).front().isVisible);
    track.setTempoValue(96);
    EXPECT_TRUE(tempoInForce(track, 0).isGiven);
    track.setTempoLabel("Lento");
    addTempo(track, 1, 2, 60, TempoUnit::Half);
    EXPECT_EQ(tempoInForce(track, 0).value, 96);
    EXPECT_EQ(tempoInForce(track, 0).text, "Lento");
    EXPECT_EQ(tempoInForce(track, 1, 1.5F).value, 96);
    EXPECT_EQ(tempoInForce(track, 1, 2).value, 60);
    EXPECT_EQ(tempoInForce(track, 99).unit, TempoUnit::Half);
    ASSERT_EQ(temposOf(track).size(), 2U);
    EXPECT_EQ(temposOf(track).front().text, "Lento");
    EXPECT_EQ(temposOf(track).back().position, 2);

    addTempo(track, 0, 0, 112, TempoUnit::QuarterDotted);
    EXPECT_EQ(tempoInForce(track, 0).value, 112) << "an automation at the start comes first";
    EXPECT_EQ(temposOf(track).size(), 2U);
}

TEST(InForce, meterAndKeyAreThoseOfTheBarOrOfTheLast)
{
    MasterTrack track;
    EXPECT_EQ(inForce(track, 3).meter, TimeSignature(4, 4));
    track.addEmptyMasterBars(2);
    track.masterBar(1)->setTimeSignature(TimeSignature(6, 8));
    track.masterBar(1)->setConcertKeySignature(KeySignature(-3, false));
    EXPECT_EQ(inForce(track, 0).meter, TimeSignature(4, 4));
    EXPECT_EQ(inForce(track, 1).meter, TimeSignature(6, 8));
    EXPECT_EQ(inForce(track, 7).key, KeySignature(-3, false));
    EXPECT_TRUE(inForce(track, 0).key.isMajor());
}

} // namespace
