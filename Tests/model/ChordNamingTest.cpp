// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnChordNaming.h>

#include <gtest/gtest.h>

#include <string>

using zarn::NamingStep;

namespace {

/// "1+0 C, 1+2 F": bars from 1, offsets in quarters.
std::string named(const std::string &music, NamingStep step, unsigned first = 0, unsigned last = 99)
{
    zarn::ScoreModel model;
    zarn::io::readScoreText(music, model);
    std::string text;
    for (const auto &place : zarn::nameChords(model, first, last, step))
        text += (text.empty() ? "" : ", ") + std::to_string(place.bar + 1) + "+"
            + place.offset.toString() + " " + place.chord.toText();
    return text;
}

} // namespace

TEST(ChordNaming, findsTheChordsUnderAMelodyAndOfBrokenChords)
{
    // A tune over chords; its passing notes stay outside.
    EXPECT_EQ(named("violin: e5q f5e e5e d5q g4q | c5h a4q f4q; "
                    "piano: [c3 e3 g3]h [g2 b2 d3]h | [f2 a2 c3]w",
                    NamingStep::HalfBar),
              "1+0 C, 1+2 G, 2+0 F");
    EXPECT_EQ(
        named("guitar 3/4: a2e c3e e3e a3e e3e c3e | d3e f3e a3e d4e a3e f3e", NamingStep::HalfBar),
        "1+0 Am, 2+0 Dm");
    // However loud a melody is doubled, the accompaniment tells; its bass may alternate.
    EXPECT_EQ(named("violin 3/4: d5h. | c5h e5q | b4h.; flute: d6h. | c6h e6q | b5h.; "
                    "piano: c2q [e4 g4]q [e4 g4]q | g2q [e4 g4]q [e4 g4]q | d2q [f4 g4]q [f4 g4]q",
                    NamingStep::Bar),
              "1+0 C, 3+0 G7/D");
    EXPECT_EQ(named("piano 6/8: [c3 e3 g3]q. [f2 a2 c3]q.", NamingStep::Beat), "1+0 C, 1+3/2 F");
}

TEST(ChordNaming, percussionAndSilenceHaveNoChord)
{
    EXPECT_EQ(named("drums: [kick hihat]q hihat snare hihat", NamingStep::Bar), "1+0 N.C.");
    EXPECT_EQ(named("piano: [c3 e3 g3]w | rw | [c3 e3 g3]w", NamingStep::Bar),
              "1+0 C, 2+0 N.C., 3+0 C");
    EXPECT_EQ(named("piano: [c3 e3 g3]w | rw", NamingStep::Bar, 1, 1), "2+0 N.C.");
}
