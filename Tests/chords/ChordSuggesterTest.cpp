// SPDX-License-Identifier: MIT
// Which chord symbols stand over music.
#include <ZarnCore/chords/ZarnChordSuggester.h>

#include <gtest/gtest.h>

#include <string>

using zarn::KeySignature;
using zarn::Tone;
using zarn::chord::ChordSuggester;
using zarn::chord::WeightedTones;

namespace {

/// "0 4 7": MIDI numbers with the weight 1 each, the first one being the bass.
WeightedTones heard(const std::vector<int> &tones, bool hasBass = true)
{
    WeightedTones result;
    for (const int tone : tones)
        result.add(Tone(tone), 1);
    if (hasBass)
        result.bass = Tone(tones.front());
    return result;
}

std::string first(const WeightedTones &tones, const KeySignature &key = KeySignature())
{
    const auto all = ChordSuggester(key).suggestions(tones);
    return all.empty() ? "" : all.front().chord.toText();
}

} // namespace

TEST(ChordSuggester, passingTonesDoNotChangeTheChord)
{
    WeightedTones tones = heard({0, 4, 7, 0, 4, 7});
    tones.add(Tone(2), 0.5);
    tones.add(Tone(5), 0.5);
    EXPECT_EQ(first(tones), "C");
    EXPECT_EQ(first(heard({7, 11, 2, 5})), "G7");
    EXPECT_EQ(first(heard({2, 5, 9, 0})), "Dm7");
    EXPECT_EQ(first(heard({4, 7, 0})), "C/E");
    EXPECT_EQ(first(heard({9, 0})), "Am");
    EXPECT_EQ(first(heard({6, 10, 1}), KeySignature(-6)), "Gb");
    EXPECT_EQ(first(WeightedTones()), "");
}

TEST(ChordSuggester, passagesKeepTheirChordUntilTheMusicLeavesIt)
{
    const ChordSuggester suggester;
    const auto chords = suggester.passage({heard({0, 4, 7}), heard({0, 4, 2}, false),
                                           WeightedTones(), heard({5, 9, 0}), heard({7, 11, 2})});
    std::string text;
    for (const auto &chord : chords)
        text += chord.toText() + " ";
    EXPECT_EQ(text, "C C N.C. F G ");
    EXPECT_TRUE(suggester.passage({}).empty());
    // A pickup belongs to what it leads to, and alternating basses make no new chords.
    const auto song =
        suggester.passage({heard({7}, false), heard({0, 4, 7}), heard({7, 0, 4}), heard({0, 4, 7}),
                           heard({7, 0, 4, 0, 4}), heard({7, 11, 2, 5})});
    text.clear();
    for (const auto &chord : song)
        text += chord.toText() + " ";
    EXPECT_EQ(text, "C C C C C G7 ");
}

TEST(ChordSuggester, suspensionsAndNinthsHaveToBeHeard)
{
    WeightedTones ninth = heard({0, 4, 7});
    ninth.add(Tone(2), 0.6);
    EXPECT_EQ(first(ninth), "C");
    EXPECT_EQ(first(heard({0, 5, 7, 0, 5, 7})), "Csus4");
    EXPECT_EQ(first(heard({7, 0, 2, 5, 5})), "G7sus4");
    EXPECT_EQ(first(heard({2, 6, 9, 0, 4}), KeySignature(1)), "D9");
    EXPECT_EQ(first(heard({0, 7})), "C5");
}
