// SPDX-License-Identifier: MIT
// What a hand can hold, and with which fingers people hold it.
#include <ZarnCore/chords/ZarnHandModel.h>

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace zarn::chord;

/// "x32010": a digit per string, x for one that is not played.
FretRow fretsOf(const std::string &text)
{
    FretRow frets(text.size());
    for (std::size_t string = 0; string < text.size(); ++string)
        frets.set(string, text[string] == 'x' ? FretRow::notPlayed : text[string] - '0');
    return frets;
}

std::string fingersOf(const HandShape &shape, std::size_t stringCount)
{
    std::string text;
    for (std::size_t string = 0; string < stringCount; ++string)
        text += static_cast<char>('0' + shape.fingers[string]);
    return text;
}

std::string bestFingers(const HandModel &hand, const std::string &frets, int capo = 0)
{
    const auto shape = hand.bestShape(fretsOf(frets), capo);
    return shape ? fingersOf(*shape, frets.size()) : "none";
}

/// What must hold for whatever fingers the model puts on the strings.
void expectSound(const HandModel &hand, const FretRow &frets, const HandShape &shape)
{
    std::vector<int> fretOfFinger(HandModel::fingerCount + 1, 0);
    float cost = 0;
    for (std::size_t reason = 0; reason < handReasonCount; ++reason)
        cost += shape.amounts[reason] * hand.profile().weights[reason];
    EXPECT_NEAR(cost, shape.cost, 1e-3F) << "the reasons add up";
    for (std::size_t string = 0; string < frets.size(); ++string) {
        const int finger = shape.fingers[string];
        ASSERT_EQ(finger != 0, frets[string] > 0) << "a stopped string needs a finger";
        if (finger == 0)
            continue;
        ASSERT_LE(finger, HandModel::fingerCount);
        auto &fret = fretOfFinger[static_cast<std::size_t>(finger)];
        ASSERT_TRUE(fret == 0 || fret == frets[string]) << "a finger is at one fret";
        fret = frets[string];
        for (std::size_t other = string + 1; other < frets.size(); ++other) {
            if (shape.fingers[other] != finger)
                continue;
            for (std::size_t between = string; between < other; ++between)
                ASSERT_TRUE(frets[between] == FretRow::notPlayed || frets[between] >= fret)
                    << "nothing under a barre sounds lower";
        }
    }
    int last = 0;
    for (const int fret : fretOfFinger) {
        ASSERT_TRUE(fret == 0 || fret >= last) << "higher fingers are at higher frets";
        last = std::max(last, fret);
    }
}

TEST(HandModel, holdsFirstShapesAsPeopleLearnThem)
{
    // Frets and the fingers that books give; some shapes have several.
    const std::vector<std::pair<std::string, std::set<std::string>>> shapes = {
        {"x32010", {"032010"}},
        {"022100", {"023100"}},
        {"x02220", {"001230", "002340", "002130", "001110"}},
        {"x02210", {"002310"}},
        {"xx0231", {"000231"}},
        {"xx0232", {"000132"}},
        {"x02020", {"002030", "001020", "001030"}},
        {"320001", {"320001"}},
        {"x21202", {"021304"}},
        {"022030", {"023040", "012030", "012040"}},
        {"x32000", {"032000"}},
        {"320002", {"320001", "210003", "310002"}},
        {"x02120", {"002130"}},
        {"xx0230", {"000130", "000230"}},
        {"022200", {"023400", "012300"}},
        {"133211", {"134211"}},
        {"133111", {"134111"}},
        {"131211", {"131211"}},
        {"x24432", {"013421"}},
        {"x24232", {"013121"}},
        {"x13331", {"012341"}},
        {"x2313x", {"023140"}},
        {"x7678x", {"021340"}},
        {"200232", {"100243"}},
        {"x20003", {"020003", "010003", "020004", "010002"}},
        {"022xxx", {"013000", "012000", "011000", "014000"}},
        {"355xxx", {"134000", "133000"}},
    };
    const HandModel hand(guitarHand());
    for (const auto &[frets, usual] : shapes)
        EXPECT_EQ(usual.count(bestFingers(hand, frets)), 1U)
            << frets << " is held as " << bestFingers(hand, frets);
}

TEST(HandModel, knowsWhatNoHandHolds)
{
    const HandModel hand(guitarHand());
    EXPECT_EQ(bestFingers(hand, "12345x"), "none") << "five frets, four fingers";
    EXPECT_EQ(bestFingers(hand, "1xxxx6"), "none") << "too far";
    EXPECT_EQ(bestFingers(hand, "505050505"), "none") << "five places, no barre over open strings";
    EXPECT_EQ(bestFingers(hand, "xxxxxx"), "000000") << "nothing to hold is easy";
}

TEST(HandModel, reachesOverMoreFretsUpTheNeck)
{
    const HandModel guitar(guitarHand());
    EXPECT_FALSE(guitar.reaches(1, 5));
    EXPECT_TRUE(guitar.reaches(7, 11));
    const HandModel contrabass(contrabassHand());
    EXPECT_FALSE(contrabass.reaches(1, 4));
    EXPECT_TRUE(contrabass.reaches(12, 15));
    const HandModel violin(violinHand());
    EXPECT_TRUE(violin.reaches(2, 7)) << "a fourth in first position";
}

TEST(HandModel, everyShapeIsSoundAndTheBestComesFirst)
{
    Random random(20);
    for (const HandProfile *profile : {&guitarHand(), &bassHand(), &ukuleleHand(), &violinHand()}) {
        const HandModel hand(*profile);
        for (int round = 0; round < 2000; ++round) {
            FretRow frets(static_cast<std::size_t>(random.between(1, 9)));
            const int lowest = random.between(1, 12);
            for (std::size_t string = 0; string < frets.size(); ++string)
                frets.set(string,
                          random.between(0, 2) == 0 ? random.between(-1, 0)
                                                    : lowest + random.between(0, 3));
            const auto all = hand.shapes(frets);
            const auto best = hand.bestShape(frets);
            ASSERT_EQ(best.has_value(), !all.empty());
            std::set<FingerRow> fingers;
            for (const HandShape &shape : all) {
                expectSound(hand, frets, shape);
                EXPECT_GE(shape.cost, all.front().cost);
                EXPECT_TRUE(fingers.insert(shape.fingers).second) << "twice";
                const auto kept = hand.bestShape(frets, 0, shape.fingers);
                ASSERT_TRUE(kept.has_value()) << "wanted fingers are kept";
                EXPECT_EQ(kept->fingers, shape.fingers);
            }
            if (best) {
                EXPECT_FLOAT_EQ(best->cost, all.front().cost);
            }
        }
    }
}

} // namespace
