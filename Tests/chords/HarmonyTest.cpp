// SPDX-License-Identifier: MIT
// Chords as MusicXML says them.
#include <ZarnCore/chords/ZarnChord.h>

#include <gtest/gtest.h>

using zarn::PitchClass;
using zarn::chord::Chord;
using zarn::chord::ChordKind;
using zarn::chord::Harmony;
using zarn::chord::HarmonyDegree;
using zarn::chord::HarmonyKind;

namespace {

using Type = HarmonyDegree::Type;

Harmony harmony(const char *root, HarmonyKind kind, std::vector<HarmonyDegree> degrees = {})
{
    Harmony result;
    result.root = PitchClass::fromString(QString::fromLatin1(root));
    result.kind = kind;
    result.degrees = std::move(degrees);
    return result;
}

std::string symbol(const Harmony &given)
{
    const auto chord = Chord::fromHarmony(given);
    return chord ? chord->toText() : "?";
}

} // namespace

TEST(Harmony, everyKindHasAWordAndComesBackWithDegreesInversionAndBass)
{
    for (int i = 0; i < zarn::chord::harmonyKindCount; ++i) {
        const auto kind = static_cast<HarmonyKind>(i);
        const auto word = zarn::chord::harmonyKindToString(kind);
        EXPECT_EQ(zarn::chord::harmonyKindFromString(word), kind);
        if (kind == HarmonyKind::None)
            continue;
        for (int value = 1; value <= 13; ++value)
            for (int alter = -2; alter <= 2; ++alter)
                for (const Type type : {Type::Add, Type::Alter, Type::Subtract}) {
                    Harmony given = harmony("Eb", kind, {{value, alter, type}});
                    given.inversion = value % 4;
                    given.bass = PitchClass(zarn::NoteName::Value::D);
                    const auto chord = Chord::fromHarmony(given);
                    ASSERT_TRUE(chord);
                    ASSERT_EQ(chord->toHarmony(), given) << word << value << alter;
                    // As a symbol it still has the same tones.
                    const auto read = Chord::fromText(chord->toText());
                    ASSERT_TRUE(read) << chord->toText();
                    ASSERT_EQ(read->toneSetWithBass(), chord->toneSetWithBass()) << chord->toText();
                }
    }
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::None)), "N.C.");
    EXPECT_EQ(Chord().toHarmony().kind, HarmonyKind::None);
}

TEST(Harmony, degreesAreCountedFromTheKindOrFromADominantChord)
{
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{7, 0, Type::Add}})), "C7");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{7, 1, Type::Add}})), "Cmaj7");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::MinorSeventh, {{5, -1, Type::Alter}})), "Cm7b5");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::MajorSeventh, {{7, -1, Type::Alter}})), "C7");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Dominant, {{9, -1, Type::Alter}})), "C7b9");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{3, 0, Type::Subtract}})), "C5");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{9, 0, Type::Subtract}})), "C");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Other, {{3, 0, Type::Add}, {5, 0, Type::Add}})),
              "C");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::German)), "CGer6");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{15, 0, Type::Add}})), "?");
    EXPECT_EQ(symbol(harmony("C", HarmonyKind::Major, {{5, 100, Type::Add}})), "?");
    Harmony functional;
    EXPECT_FALSE(Chord::fromHarmony(functional));
}

TEST(Harmony, everyKindOfTheTableIsSaidInMusicXml)
{
    for (const ChordKind &kind : ChordKind::all()) {
        const Chord chord(PitchClass(zarn::NoteName::Value::A), kind);
        const auto back = Chord::fromHarmony(chord.toHarmony());
        ASSERT_TRUE(back);
        EXPECT_EQ(back->simplified(), chord) << chord.toText();
    }
}
