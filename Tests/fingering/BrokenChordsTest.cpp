// SPDX-License-Identifier: MIT
#include "support/FingeredPassage.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <vector>

namespace {

using namespace zarn::fingering;
using zarn::test::addEvent;
using zarn::test::guitar;
using zarn::test::passageOn;

/// A broken chord in triplets under a tune, as in sixteen bars that every guitarist knows: what the
/// open strings have rings there while the tune goes up to the twelfth fret and back on the first
/// string. Where the chord is not on open strings, the hand holds it, and each finger that plucks
/// keeps its string; the bass may be open or not.
TEST(BrokenChordsTest, aBrokenChordKeepsItsStringsUnderATune)
{
    struct StudyBar {
        std::array<int, 3> tune;
        std::array<int, 2> chord;
        int bass;
    };
    const std::array<int, 2> open = {59, 55};
    const std::vector<StudyBar> study = {
        {{71, 71, 71}, open, 40},     {{71, 69, 67}, open, 40},     {{67, 66, 64}, open, 40},
        {{64, 67, 71}, open, 40},     {{76, 76, 76}, open, 40},     {{76, 74, 72}, open, 40},
        {{72, 71, 69}, {64, 60}, 45}, {{69, 71, 72}, {64, 60}, 45}, {{71, 72, 71}, {66, 63}, 47},
        {{75, 72, 71}, {66, 63}, 47}, {{71, 69, 67}, open, 40},     {{67, 66, 64}, open, 40},
        {{66, 66, 66}, {59, 57}, 47}, {{66, 67, 66}, {59, 57}, 47}, {{64, 64, 64}, open, 40},
    };
    constexpr double third = 1. / 3;
    for (const std::size_t barCount : {std::size_t{8}, study.size()}) {
        SCOPED_TRACE(barCount);
        Passage passage = passageOn(guitar, 19);
        std::vector<int> strings;
        const auto add = [&](int pitch, double end, int string) {
            passage.addNote({pitch, end});
            strings.push_back(string);
        };
        double onset = 0;
        for (std::size_t number = 0; number < barCount; ++number) {
            const StudyBar &bar = study[number];
            const double barEnd = onset + 3;
            for (const int tune : bar.tune) {
                passage.addEvent(onset);
                add(tune, onset + third, 5);
                if (onset + 3 == barEnd)
                    add(bar.bass, barEnd, bar.bass == 40 ? 0 : PassageNote::Free);
                passage.addEvent(onset + third);
                add(bar.chord[0], onset + 2 * third, 4);
                passage.addEvent(onset + 2 * third);
                add(bar.chord[1], onset + 1, 3);
                onset += 1;
            }
        }
        const FingeringSolution fingering = FingeringSolver(passage).solve();
        for (std::size_t i = 0; i < passage.notes.size(); ++i)
            if (strings[i] != PassageNote::Free) {
                EXPECT_EQ(fingering.notes[i].string, strings[i])
                    << passage.notes[i].pitch << " at " << i;
            }
    }
}

struct PluckedNote {
    int pitch;
    int string;
};

/// How often something happens in quarters on such strings, by what it adds to the effort.
double timesOf(double FingeringWeights::*weight, const std::vector<PluckedNote> &notes,
               FingeringWeights weights = {})
{
    Passage passage = passageOn(guitar);
    for (const PluckedNote &note : notes) {
        addEvent(passage, {note.pitch});
        passage.notes.back().string = note.string;
    }
    const auto effortWith = [&](double effort) {
        weights.*weight = effort;
        return FingeringSolver(passage, weights).solve().leastEffort;
    };
    return effortWith(1) - effortWith(0);
}

/// How often a finger of the plucking hand leaves its string.
double movedPlucks(const std::vector<PluckedNote> &notes)
{
    return timesOf(&FingeringWeights::movedPluck, notes);
}

std::vector<PluckedNote> pluckedAgain(const std::vector<PluckedNote> &figure, int times)
{
    std::vector<PluckedNote> notes;
    for (int time = 0; time < times; ++time)
        notes.insert(notes.end(), figure.begin(), figure.end());
    return notes;
}

/// A figure of skips that returns keeps the fingers on their strings, but for the thumb. What
/// climbs, goes in steps or back and forth is no such figure.
TEST(BrokenChordsTest, aFingerThatPlucksLeavesItsStringWithEffort)
{
    constexpr double nearly = 1e-6;
    std::vector<PluckedNote> arpeggio = pluckedAgain({{48, 1}, {55, 3}, {60, 4}, {64, 5}}, 3);
    EXPECT_NEAR(movedPlucks(arpeggio), 0, nearly);
    arpeggio.back().string = 4;
    EXPECT_NEAR(movedPlucks(arpeggio), 1, nearly);
    arpeggio[arpeggio.size() - 3].string = 2;
    EXPECT_NEAR(movedPlucks(arpeggio), 2, nearly);
    arpeggio[arpeggio.size() - 4].string = 0;
    EXPECT_NEAR(movedPlucks(arpeggio), 2, nearly) << "the thumb";

    std::vector<PluckedNote> twice = pluckedAgain({{48, 1}, {55, 3}, {60, 4}, {64, 5}}, 2);
    twice.back().string = 4;
    EXPECT_NEAR(movedPlucks(twice), 0, nearly);
    std::vector<PluckedNote> scale = pluckedAgain({{60, 4}, {62, 4}, {64, 5}, {65, 5}}, 4);
    scale[scale.size() - 2].string = 4;
    EXPECT_NEAR(movedPlucks(scale), 0, nearly);
    std::vector<PluckedNote> inTurn = pluckedAgain({{55, 3}, {64, 5}}, 8);
    inTurn.back().string = 4;
    EXPECT_NEAR(movedPlucks(inTurn), 0, nearly);
    const std::vector<PluckedNote> climbing = {{48, 1}, {52, 2}, {55, 3}, {50, 1},
                                               {53, 2}, {57, 3}, {52, 2}, {55, 3},
                                               {59, 4}, {53, 2}, {57, 3}, {60, 4}};
    EXPECT_NEAR(movedPlucks(climbing), 0, nearly);
}

/// Where a broken chord gives way to the next, its notes are not missed.
TEST(BrokenChordsTest, aBrokenChordEndsWithTheNextOne)
{
    FingeringWeights weights;
    weights.longestRing = 8;
    weights.cutBroken = 0;
    const std::vector<PluckedNote> figure = {{50, 2}, {55, 3}, {59, 4}, {64, 5}};
    for (const int times : {1, 3}) {
        std::vector<PluckedNote> notes = pluckedAgain(figure, times);
        notes.push_back({50, 2});
        notes.push_back({58, 3}); // where 55 rings
        EXPECT_NEAR(timesOf(&FingeringWeights::cutRinging, notes, weights), times == 1 ? 1 : 0,
                    1e-6);
    }
}

} // namespace
