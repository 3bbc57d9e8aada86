// SPDX-License-Identifier: MIT
#include "PlaybackSamples.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <cmath>

namespace zarn::playback {

namespace {

void addTempo(Sample &sample, unsigned bar, float position, float value, bool isLinear = false)
{
    auto tempo = std::make_unique<TempoAutomation>();
    tempo->setIndex(bar);
    tempo->setPosition(position);
    tempo->setValue(value);
    tempo->setLinear(isLinear);
    sample.model->masterTrack()->insertAutomation(std::move(tempo));
}

} // namespace

TEST(TempoMap, slidesFollowTheIntegralOfTheTempo)
{
    // From 60 to 120 over four quarters: 60 * 4 / 60 * ln 2 seconds.
    const TempoMap map({{0, 0, 60, 120}, {4, 0, 120, 120}});
    EXPECT_NEAR(map.secondsAt(4.0), 4 * std::log(2), 1e-12);
    EXPECT_NEAR(map.secondsAt(2.0), 4 * std::log(1.5), 1e-12);
    EXPECT_NEAR(map.secondsAt(6.0), 4 * std::log(2) + 1, 1e-12);
    EXPECT_NEAR(map.tempoAt(1), 75, 1e-12);
    EXPECT_NEAR(map.secondsAt(-1.0), -1, 1e-12) << "the first tempo holds in front of the start";
    for (const double quarters : {-1.0, 0.0, 0.3, 2.0, 3.999, 4.0, 9.5})
        EXPECT_NEAR(map.quartersAt(map.secondsAt(quarters)), quarters, 1e-9);
}

TEST(TempoMap, slidesThatHardlyMoveAreNoDivisionByZero)
{
    const TempoMap map({{0, 0, 120, 120.0000000001}, {4, 0, 120, 120}});
    EXPECT_NEAR(map.secondsAt(4.0), 2, 1e-9);
    EXPECT_NEAR(map.quartersAt(1.0), 2, 1e-9);
}

TEST(TempoMap, keepsTempiThatAFileCanSay)
{
    const TempoMap map({{0, 0, 0, -5}, {1, 0, std::nan(""), 120}, {2, 0, 1e9, 1e9}});
    for (const TempoMap::Point &point : map.points()) {
        EXPECT_GE(point.tempo, TempoMap::Slowest);
        EXPECT_LE(point.tempo, TempoMap::Fastest);
    }
}

TEST(TempoMap, aPartIsTheWholeFromThere)
{
    const TempoMap map({{0, 0, 60, 120}, {4, 0, 90, 90}, {6, 0, 30, 30}});
    const TempoMap part = map.from({5, 2});
    for (const double quarters : {0.0, 1.0, 2.0, 3.5, 8.0})
        EXPECT_NEAR(part.secondsAt(quarters), map.secondsAt(quarters + 2.5) - map.secondsAt(2.5),
                    1e-9);
}

TEST(PlanTempo, temposAreThoseOfThePlaceEachTimeItIsPlayed)
{
    Sample sample(3);
    addTempo(sample, 0, 0, 60);
    addTempo(sample, 1, 2, 120);
    sample.master(1).setRepeatCount(2); // bars 1 2 1 2 3
    const auto plan = sample.plan();
    ASSERT_EQ(plan.bars().bars().size(), 5U);
    const auto second = [&](unsigned bar, unsigned pass) { return *plan.secondOf(bar, 0, pass); };
    EXPECT_NEAR(second(1, 0), 4, 1e-9);
    EXPECT_NEAR(second(0, 1), 4 + 2 + 1, 1e-9);
    EXPECT_NEAR(second(1, 1), 11, 1e-9) << "back at the slow start";
    EXPECT_NEAR(second(2, 0), 14, 1e-9);
}

TEST(PlanTempo, aSlideIsHeardInPartsWhereItIsCutByAJump)
{
    Sample sample(2);
    addTempo(sample, 0, 0, 60, true);
    addTempo(sample, 1, 4, 120);
    sample.master(0).setRepeatCount(2);
    const auto plan = sample.plan();
    // The first bar runs from 60 to 90, and does so again.
    const double bar = 8 * std::log(1.5);
    EXPECT_NEAR(*plan.secondOf(0, 0, 1), bar, 1e-9);
    EXPECT_NEAR(*plan.secondOf(1, 0, 0), 2 * bar, 1e-9);
    EXPECT_NEAR(plan.tempo().secondsAt(plan.end()), bar + 8 * std::log(2), 1e-9);
}

TEST(PlanTempo, bypassedTempoAutomationsCountForNothing)
{
    Sample sample(2);
    addTempo(sample, 1, 0, 30);
    sample.model->masterTrack()->bypassType(Automation::Tempo, true);
    EXPECT_NEAR(sample.plan().tempo().secondsAt(8.0), 4, 1e-9);
}

TEST(PlanTempo, fermatasHoldTheShortestBeatUnderThem)
{
    Sample sample(2);
    sample.add(Value::Half, {60});
    sample.add(Value::Half, {62});
    sample.add(Value::Quarter, {48}, 0, 1);
    sample.add(Value::Quarter, {50}, 0, 1);
    sample.add(Value::Half, {52}, 0, 1);
    sample.master(0).setFermatas({{0, Fermata::Medium, 100}, {4, Fermata::Short, 50}});
    const auto plan = sample.plan(); // at 120
    EXPECT_NEAR(*plan.secondOf(0, 1), 1, 1e-9) << "twice as long";
    EXPECT_NEAR(*plan.secondOf(0, 2), 1.5, 1e-9);
    EXPECT_NEAR(*plan.secondOf(1, 0), 2.5 + 0.25, 1e-9) << "a pause of half a quarter at the end";
}

TEST(PlanTempo, caesurasStopAllTracks)
{
    Sample sample(1);
    sample.add(Value::Half, {60}).setBreath(BreathSign::Caesura);
    sample.add(Value::Half, {62});
    const auto plan = sample.plan();
    // A 16th of silence lasts three times as long.
    EXPECT_EQ(times(plan), "60:0-7/4 62:2-63/16");
    EXPECT_NEAR(plan.notes()[1].startSecond, 1 + 0.25, 1e-9);
}

} // namespace zarn::playback
