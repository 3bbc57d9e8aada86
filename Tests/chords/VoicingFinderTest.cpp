// SPDX-License-Identifier: MIT
// Ways to play chords, on all kinds of necks.
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnVoicingFinder.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/utils/JsonDocument.h>

#include "support/Random.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::chord;

const GuitarTuning guitar(GuitarTuning::Guitar, {40, 45, 50, 55, 59, 64});

VoicingFinder finderFor(const GuitarTuning &tuning, const Capos &capos = {},
                        unsigned fretCount = 24)
{
    return {Fretboard(tuning, capos, fretCount), HandModel(handFor(tuning))};
}

ChordTones tonesOf(const std::string &text)
{
    const auto chord = Chord::fromText(text);
    EXPECT_TRUE(chord.has_value()) << text;
    return ChordTones::of(chord.value_or(Chord()));
}

std::string fretsText(const ChordDiagram &diagram)
{
    std::string text;
    for (const int fret : diagram.frets)
        text += fret < 0 ? "x" : fret > 9 ? "(" + std::to_string(fret) + ")" : std::to_string(fret);
    return text;
}

/// The frets of the first voicings, lowest string first.
std::vector<std::string> voicings(const VoicingFinder &finder, const std::string &chord,
                                  std::size_t most = 1000)
{
    std::vector<std::string> texts;
    for (const Voicing &voicing : finder.find(tonesOf(chord))) {
        if (texts.size() == most)
            break;
        texts.push_back(fretsText(finder.diagram(voicing)));
    }
    return texts;
}

bool holds(const std::vector<std::string> &texts, const std::string &text)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

GuitarTuningLibrary::Tunings catalogue()
{
    QFile file(QStringLiteral(":/instrumentSet/ZarnTunings.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const auto document = utils::jsonDocument(file.readAll().toStdString(), "tunings");
    static GuitarTuningLibrary library;
    if (library.getTunings(GuitarTuning::CoreRole).empty())
        library.parse(document["tunings"]);
    return library.getTunings(GuitarTuning::CoreRole);
}

/// What must hold for every voicing of a chord.
void expectSound(const VoicingFinder &finder, const ChordTones &chord,
                 const std::vector<Voicing> &all)
{
    const auto &courses = finder.fretboard().courses();
    std::set<std::string> known;
    float cost = 0;
    for (const Voicing &voicing : all) {
        ToneSet tones;
        for (std::size_t index = 0; index < courses.size(); ++index) {
            const int fret = voicing.frets[index];
            if (fret < 0)
                continue;
            const Course &course = courses[index];
            ASSERT_TRUE(fret == 0 || (fret >= course.firstStop && fret <= course.lastStop));
            tones.insert(Tone(fret == 0 ? course.openPitch : course.pitchAt(fret)));
            ASSERT_EQ(fret > 0, voicing.hand.fingers[index] > 0);
        }
        ASSERT_TRUE(chord.tones.contains(tones)) << "no foreign tones";
        ASSERT_TRUE(chord.tones - tones == voicing.omitted);
        EXPECT_GE(voicing.cost, cost) << "the best come first";
        cost = voicing.cost;
        EXPECT_TRUE(known.insert(fretsText(finder.diagram(voicing))).second) << "twice";
    }
}

TEST(VoicingFinder, findsTheShapesThatEverybodyKnows)
{
    const auto finder = finderFor(guitar);
    const std::vector<std::pair<const char *, const char *>> shapes = {
        {"C", "x32010"},  {"E", "022100"},     {"A", "x02220"},   {"Am", "x02210"},
        {"Dm", "xx0231"}, {"G7", "320001"},    {"B7", "x21202"},  {"Cmaj7", "x32000"},
        {"F", "133211"},  {"Asus2", "x02200"}, {"Bm", "x24432"},  {"C#m", "x46654"},
        {"Fm", "133111"}, {"D/F#", "200232"},  {"G/B", "x20003"}, {"E5", "022xxx"},
    };
    for (const auto &[chord, frets] : shapes)
        EXPECT_TRUE(holds(voicings(finder, chord, 10), frets)) << chord;
    EXPECT_TRUE(holds(voicings(finder, "E7#9", 20), "x7678x"));
    const GuitarTuning ukulele(GuitarTuning::Ukulele, {67, 60, 64, 69});
    for (const auto &[chord, frets] : {std::pair("C", "0003"), std::pair("F", "2010"),
                                       std::pair("G", "0232"), std::pair("Am", "2000")})
        EXPECT_EQ(voicings(finderFor(ukulele), chord, 1).front(), frets) << chord;
}

TEST(VoicingFinder, leavesTheRootToTheBassWhereTheStringsAreFew)
{
    const auto finder = finderFor({GuitarTuning::Ukulele, {67, 60, 64, 69}});
    EXPECT_EQ(voicings(finder, "C9", 1).front(), "0201") << "G D E Bb";
    for (const Voicing &voicing : finder.find(tonesOf("C9/C")))
        EXPECT_FALSE(voicing.omitted.contains(Tone(0))) << "a bass that is named is played";
}

TEST(VoicingFinder, findsSomethingOnEveryTuningOfTheCatalogue)
{
    const std::vector<std::string> roots = {"C",  "C#", "D",  "Eb", "E",  "F",
                                            "F#", "G",  "Ab", "A",  "Bb", "B"};
    const std::vector<std::string> kinds = {"", "m", "7"};
    std::size_t number = 0;
    for (const auto &tuning : catalogue()) {
        const auto finder = finderFor(*tuning);
        for (std::size_t i = 0; i < 3; ++i, ++number) {
            const auto chord = tonesOf(roots[number % roots.size()] + kinds[i]);
            const auto all = finder.find(chord);
            EXPECT_FALSE(all.empty()) << tuning->name() << " " << number;
            expectSound(finder, chord, all);
        }
    }
}

TEST(VoicingFinder, soundsNothingElseAndOmitsOnlyWhatMayBeOmitted)
{
    Random random(3);
    const auto kinds = ChordKind::all();
    for (int round = 0; round < 60; ++round) {
        std::vector<unsigned> pitches(static_cast<std::size_t>(random.between(1, 8)));
        for (auto &pitch : pitches)
            pitch = static_cast<unsigned>(random.between(36, 72));
        Capos capos{static_cast<unsigned>(random.below(4)), static_cast<unsigned>(random.below(6)),
                    std::vector<bool>(pitches.size())};
        for (std::size_t string = 0; string < pitches.size(); ++string)
            capos.partialStrings[string] = random.coin();
        GuitarTuning tuning(pitches);
        tuning.setShortDroneString(random.percent(20));
        const auto finder = finderFor(tuning, capos);
        const Chord chord(PitchClass::fromPitch(random.between(0, 11), random.coin()),
                          kinds[random.below(kinds.size())]);
        const auto tones = ChordTones::of(chord);
        const auto all = finder.find(tones);
        expectSound(finder, tones, all);
        const bool isWhole = !all.empty() && tones.omissible.contains(all.front().omitted);
        for (const Voicing &voicing : all)
            EXPECT_EQ(tones.omissible.contains(voicing.omitted), isWhole)
                << "either all hold what they must, or as much as can be held";
    }
}

TEST(VoicingFinder, aCapoMovesShapesAlong)
{
    const auto plain = voicings(finderFor(guitar), "G");
    const auto behindCapo = voicings(finderFor(guitar, {3, 0, {}}), "Bb");
    EXPECT_TRUE(holds(behindCapo, "320003"));
    EXPECT_TRUE(holds(plain, "320003"));
    // D A D G B E by a partial capo at fret 2 that leaves the lowest string free.
    const Capos partial{0, 2, {false, true, true, true, true, true}};
    const auto finder = finderFor(guitar, partial);
    EXPECT_TRUE(holds(voicings(finder, "E/E"), "0x0232")) << "D with a low tonic, two frets up";
}

TEST(VoicingFinder, courseStringsAreStoppedTogether)
{
    const GuitarTuning twelve(GuitarTuning::Guitar,
                              {40, 52, 45, 57, 50, 62, 55, 67, 59, 59, 64, 64});
    const auto finder = finderFor(twelve);
    ASSERT_EQ(finder.fretboard().courses().size(), 6U);
    EXPECT_TRUE(holds(voicings(finder, "C", 10), "xx3322001100"));
    const GuitarTuning single(GuitarTuning::Guitar, {38, 45, 50, 50, 57, 62});
    EXPECT_EQ(Fretboard(single).courses().size(), 6U) << "unisons of an open tuning are no course";
}

TEST(VoicingFinder, aShortDroneRingsWhenItFits)
{
    GuitarTuning banjo(GuitarTuning::Banjo, {67, 50, 55, 59, 62});
    banjo.setShortDroneString(true);
    const auto finder = finderFor(banjo);
    EXPECT_EQ(voicings(finder, "G", 1).front(), "00000");
    EXPECT_TRUE(holds(voicings(finder, "C", 3), "02012"));
    for (const auto &text : voicings(finder, "D"))
        EXPECT_EQ(text.front(), 'x') << "G is no tone of D";
}

TEST(VoicingFinder, whatCannotBePlayedWholeIsPlayedAsWholeAsPossible)
{
    const GuitarTuning shamisen(GuitarTuning::Shamisen, {50, 55, 62});
    const auto tones = tonesOf("G13");
    const auto all = finderFor(shamisen).find(tones);
    ASSERT_FALSE(all.empty());
    for (const Voicing &voicing : all)
        EXPECT_EQ(voicing.omitted.size(), tones.tones.size() - 3);
}

TEST(VoicingFinder, answersNothingWhereThereIsNothing)
{
    EXPECT_TRUE(finderFor(guitar).find(ChordTones()).empty()) << "no tones";
    EXPECT_TRUE(voicings(finderFor(GuitarTuning()), "C").empty()) << "no strings";
    EXPECT_TRUE(voicings(finderFor(guitar, {}, 0), "C7b9").empty()) << "no frets";
    const GuitarTuning openG(GuitarTuning::Guitar, {38, 43, 50, 55, 59, 62});
    EXPECT_EQ(voicings(finderFor(openG, {}, 0), "G/D").front(), "000000")
        << "open strings sound without frets";
    EXPECT_TRUE(holds(voicings(finderFor(openG, {255, 0, {}}), "G/D"), "000000"))
        << "a capo beyond the neck lies on its last fret, two octaves up";
    const GuitarTuning harp(std::vector<unsigned>(100, 48));
    EXPECT_FALSE(voicings(finderFor(harp), "C5").empty());
    ChordTones everything;
    everything.tones = ToneSet(0xfffU);
    EXPECT_FALSE(finderFor(guitar).find(everything).empty());
}

} // namespace
