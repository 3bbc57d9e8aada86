// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/music/ZarnTone.h>

#include <ZarnCore/ZarnException.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace zarn;

constexpr ClefType clefs[] = {ClefType::None, ClefType::G2, ClefType::F4,
                              ClefType::C3,   ClefType::C4, ClefType::Neutral};

std::string root(int count, bool isMajor)
{
    return PitchClass::fromPitch(KeySignature(count, isMajor).rootNote()).toString().toStdString();
}

TEST(KeySignature, countsComeInsideByTwelveFifths)
{
    EXPECT_EQ(KeySignature(9).accidentalCount(), -3);
    EXPECT_EQ(KeySignature(-8).accidentalCount(), 4);
    for (const int count :
         {INT32_MIN, INT32_MIN + 1, -100, -20, -19, -7, 0, 7, 8, 19, 20, 100, INT32_MAX}) {
        const int inside = KeySignature(count).accidentalCount();
        EXPECT_LE(std::abs(inside), 7);
        EXPECT_EQ((std::int64_t(count) - inside) % 12, 0) << count;
        EXPECT_EQ(inside == count, count >= -7 && count <= 7);
    }
}

TEST(KeySignature, rootsAreThoseOfTheCircleOfFifths)
{
    std::istringstream major("Cb Gb Db Ab Eb Bb F C G D A E B F# C#");
    std::istringstream minor("Ab Eb Bb F C G D A E B F# C# G# D# A#");
    for (int count = -7; count <= 7; ++count) {
        std::string expected;
        major >> expected;
        EXPECT_EQ(root(count, true), expected);
        minor >> expected;
        EXPECT_EQ(root(count, false), expected);
    }
}

/// A major scale has whole and half steps in one order, on whatever root.
TEST(KeySignature, accidentalsMakeAMajorScaleOnTheRoot)
{
    for (int count = -7; count <= 7; ++count) {
        const KeySignature key(count);
        const PitchClass tonic = PitchClass::fromPitch(key.rootNote());
        NoteName letter = tonic.note();
        int semitones = 0;
        int altered = 0;
        for (const int step : {2, 2, 1, 2, 2, 2, 1}) {
            const NoteAccidental accidental = key.accidentalWithStep(letter);
            EXPECT_EQ(Tone(letter, accidental), tonic.tone() + semitones) << count;
            altered += accidental.alteration();
            semitones += step;
            ++letter;
        }
        EXPECT_EQ(altered, count);
    }
    EXPECT_THROW(KeySignature().accidentalWithStep(NoteName()), CoreException);
}

TEST(KeySignature, signsStandOnTheLinesOfTheirLetters)
{
    for (const ClefType clef : clefs)
        for (const int sign : {-1, 1}) {
            const KeySignature key(7 * sign);
            for (int index = 0; index < 7; ++index) {
                const int line = key.staffLineWithAccidentalIndex(index, clef);
                EXPECT_GE(line, -1);
                EXPECT_LE(line, 9);
                const NoteName letter = Music::noteNameFromStaffLine(line, clef);
                const KeySignature less(index * sign);
                const KeySignature more((index + 1) * sign);
                EXPECT_EQ(less.accidentalWithStep(letter).alteration(), 0);
                EXPECT_EQ(more.accidentalWithStep(letter).alteration(), sign);
            }
        }
    EXPECT_EQ(KeySignature(1).staffLineWithAccidentalIndex(0, ClefType::G2), 8);
    EXPECT_EQ(KeySignature(1).staffLineWithAccidentalIndex(0, ClefType::C4), 2);
    EXPECT_EQ(KeySignature(-1).staffLineWithAccidentalIndex(0, ClefType::F4), 2);
    EXPECT_THROW(KeySignature(1).staffLineWithAccidentalIndex(7, ClefType::G2), CoreException);
    EXPECT_THROW(KeySignature(1).staffLineWithAccidentalIndex(-1, ClefType::G2), CoreException);
    EXPECT_THROW(KeySignature(1).staffLineWithAccidentalIndex(0, static_cast<ClefType>(6)),
                 CoreException);
}

TEST(KeySignature, transposingByAnIntervalMovesTheRootByIt)
{
    using Degree = Interval::Value;
    using Quality = Interval::Alteration;
    for (int count = -7; count <= 7; ++count)
        for (int degree = 0; degree <= 7; ++degree)
            for (int quality = 0; quality <= 6; ++quality) {
                const Interval interval(static_cast<Degree>(degree), static_cast<Quality>(quality));
                KeySignature key(count);
                const PitchClass before = PitchClass::fromPitch(key.rootNote());
                key.transpose(interval, 1);
                const PitchClass up = PitchClass::fromPitch(key.rootNote());
                EXPECT_EQ(up.tone(), before.transposed(interval).tone());
                key.transpose(interval, -1);
                EXPECT_EQ(PitchClass::fromPitch(key.rootNote()).tone(), before.tone());
            }
    KeySignature key(0);
    key.transpose(Interval(Degree::Second, Quality::Minor), 1);
    EXPECT_EQ(key.accidentalCount(), -5);
    key.transpose(Interval(Degree::Second, Quality::Perfect), 1);
    EXPECT_EQ(key.accidentalCount(), -5);
    EXPECT_EQ(KeySignature(-3, false, false).toQString(),
              QStringLiteral("Accidentals=-3;Mode=Minor;TransposeAs=Flats"));
    EXPECT_NE(KeySignature(1, true), KeySignature(1, false));
}

TEST(Music, keysTransposedBySemitonesTakeTheFewestAccidentals)
{
    for (int count = -7; count <= 7; ++count)
        for (int semitones = -30; semitones <= 30; ++semitones)
            for (const bool asSharps : {false, true}) {
                const KeySignature from(count, false, asSharps);
                const KeySignature to = Music::transposedKeySignature(from, semitones);
                EXPECT_EQ(PitchClass::fromPitch(to.rootNote()).tone(),
                          PitchClass::fromPitch(from.rootNote()).tone() + semitones);
                EXPECT_FALSE(to.isMajor());
                if (semitones % 12 == 0) {
                    EXPECT_EQ(to, from) << "it stays as it is written";
                    continue;
                }
                EXPECT_LE(std::abs(to.accidentalCount()), 6);
                EXPECT_NE(to.accidentalCount(), asSharps ? -6 : 6);
            }
    EXPECT_EQ(Music::transposedKeySignature(KeySignature(0), 1).accidentalCount(), -5);
    EXPECT_EQ(Music::transposedKeySignature(KeySignature(0), INT32_MIN).accidentalCount(), 4);
}

TEST(Music, spellingsFollowThePreference)
{
    NoteAccidental accidental;
    EXPECT_EQ(Music::noteNameFromMidi(61, true, &accidental), NoteName::Value::C);
    EXPECT_EQ(accidental, NoteAccidental::Value::Sharp);
    EXPECT_EQ(Music::noteNameFromMidi(61, false, &accidental), NoteName::Value::D);
    EXPECT_EQ(accidental, NoteAccidental::Value::Flat);
    EXPECT_EQ(Music::noteNameFromMidi(60, false, nullptr), NoteName::Value::C);
    EXPECT_EQ(Music::accidentalFromMidi(-1, false), NoteAccidental::Value::Natural);
    EXPECT_EQ(Music::noteNameFromString("g"), NoteName::Value::G);
    EXPECT_THROW(Music::noteNameFromString(nullptr), CoreException);
    EXPECT_EQ(Music::noteAndAccidentalsToString(
                  {{NoteName::Value::C, {}},
                   {NoteName::Value::E, NoteAccidental::Value::Flat},
                   {NoteName::Value::G, NoteAccidental::Value::DoubleSharp}}),
              QStringLiteral("C Eb G##"));
}

TEST(Music, simplestQualificationIsTheSmallestIntervalThatLeadsThere)
{
    const auto simplest = [](const char *from, const char *to) {
        const auto interval =
            Music::simplestNoteQualification(PitchClass::fromString(QString::fromLatin1(from)),
                                             PitchClass::fromString(QString::fromLatin1(to)));
        return interval ? interval->toString().toStdString() : std::string("none");
    };
    EXPECT_EQ(simplest("C", "C"), "P1");
    EXPECT_EQ(simplest("C", "D"), "M2");
    EXPECT_EQ(simplest("C", "E#"), "aug3");
    EXPECT_EQ(simplest("B", "F"), "dim5");
    EXPECT_EQ(simplest("Cbb", "E##"), "none");
    EXPECT_FALSE(Music::simplestNoteQualification(PitchClass(), PitchClass()));
}

TEST(Music, beamsGrowFromTheEighth)
{
    using NoteValue = RhythmValue::NoteValue;
    for (int number = 0; number < 11; ++number)
        EXPECT_EQ(Music::getNumberOfBeamsByValue(static_cast<NoteValue>(number)),
                  std::max(0, number - 4));
    EXPECT_THROW(Music::getNumberOfBeamsByValue(NoteValue::Invalid), CoreException);
}

TEST(StaffLines, lettersOctavesAndMidiNumbersAgreeOnEveryLine)
{
    for (const ClefType clef : clefs)
        for (int ottavia = -2; ottavia <= 2; ++ottavia)
            for (int line = -20; line <= 28; ++line) {
                const NoteName name = Music::noteNameFromStaffLine(line, clef);
                const int octave = Music::octaveFromStaffLine(line, clef, ottavia);
                const int midi = Music::midiFromStaffLine(line, clef, ottavia);
                EXPECT_EQ(PitchClass(name).midi(octave), midi);
                EXPECT_EQ(Music::staffLineOfNote(name, clef, octave - ottavia), line);
                EXPECT_EQ(Music::computeStaffLineWithMidi(midi, clef, ottavia), line);
                for (int number = 1; number <= 5; ++number) {
                    const auto accidental = static_cast<Accidental>(number);
                    const int altered = midi + NoteAccidental(accidental).alteration();
                    EXPECT_EQ(
                        Music::staffLineFromMidiAndAccidental(altered, clef, ottavia, accidental),
                        line);
                }
            }
}

TEST(StaffLines, clefsStandWhereTheirNamesSay)
{
    EXPECT_EQ(Music::midiFromStaffLine(2, ClefType::G2, 0), 67);
    EXPECT_EQ(Music::midiFromStaffLine(6, ClefType::F4, 0), 53);
    EXPECT_EQ(Music::midiFromStaffLine(4, ClefType::C3, 0), 60);
    EXPECT_EQ(Music::midiFromStaffLine(6, ClefType::C4, 0), 60);
    EXPECT_EQ(Music::midiFromStaffLine(0, ClefType::Neutral, 0), 64);
    EXPECT_EQ(Music::midiFromStaffLine(0, ClefType::G2, Music::ottaviaOctaves(Ottavia::_8vb)), 52);
    EXPECT_EQ(Music::ottaviaOctaves(Ottavia::_15ma), 2);
    EXPECT_EQ(Music::ottaviaOctaves(Ottavia::None), 0);
    EXPECT_EQ(Music::ottaviaOctaves(static_cast<Ottavia>(9)), 0);
    EXPECT_THROW(Music::midiFromStaffLine(0, static_cast<ClefType>(6), 0), CoreException);
}

TEST(StaffLines, impossibleAccidentalsFallBackToSharps)
{
    const auto line = [](int midi, Accidental accidental) {
        return Music::staffLineFromMidiAndAccidental(midi, ClefType::G2, 0, accidental);
    };
    EXPECT_EQ(line(61, Accidental::Natural), -2);
    EXPECT_EQ(line(61, Accidental::None), -2);
    EXPECT_EQ(line(61, Accidental::Flat), -1);
    EXPECT_EQ(line(60, Accidental::Sharp), -3);
    EXPECT_EQ(line(59, Accidental::Flat), -2);
    EXPECT_EQ(line(0, Accidental::Sharp), -38);
}

TEST(StaffLines, forcedAccidentalsAreKeptWhereALetterHasThem)
{
    for (int midi = 0; midi < 128; ++midi)
        for (int forced = 0; forced <= 5; ++forced)
            for (int count = -7; count <= 7; ++count) {
                const auto wish = static_cast<Accidental>(forced);
                const auto given =
                    Music::validateForcedAccidentalForMidi(midi, wish, count > 0, count);
                bool isPossible = false;
                for (const PitchClass &spelling : PitchClass::fromPitch(midi))
                    isPossible |= spelling.accidental() == NoteAccidental(given);
                EXPECT_TRUE(isPossible);
                if (given != wish && wish != Accidental::None) {
                    for (const PitchClass &spelling : PitchClass::fromPitch(midi))
                        EXPECT_NE(spelling.accidental(), NoteAccidental(wish));
                }
            }
    EXPECT_EQ(Music::validateForcedAccidentalForMidi(65, Accidental::None, true, 7),
              Accidental::Sharp)
        << "E sharp in C sharp major";
    EXPECT_EQ(Music::validateForcedAccidentalForMidi(66, Accidental::Natural, false, 0),
              Accidental::Flat);
}

} // namespace
