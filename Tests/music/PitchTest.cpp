// SPDX-License-Identifier: MIT
#include "BytesInMemory.h"

#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTone.h>

#include <ZarnCore/ZarnException.h>

#include <QDomDocument>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

using zarn::CoreException;
using zarn::Interval;
using zarn::IntervalAlteration;
using zarn::IntervalName;
using zarn::NoteAccidental;
using zarn::NoteName;
using zarn::PitchClass;
using zarn::Tone;
using Degree = Interval::Value;
using Quality = Interval::Alteration;

constexpr int naturals[] = {0, 2, 4, 5, 7, 9, 11};

PitchClass spelled(const char *text)
{
    return PitchClass::fromString(QString::fromLatin1(text));
}

std::string text(const PitchClass &pitchClass)
{
    return pitchClass.toString().toStdString();
}

std::vector<PitchClass> allSpellings()
{
    std::vector<PitchClass> result;
    for (int letter = 0; letter < 7; ++letter)
        for (int accidental = 0; accidental < 5; ++accidental)
            result.emplace_back(static_cast<NoteName::Value>(letter),
                                static_cast<NoteAccidental::Value>(accidental));
    return result;
}

std::vector<Interval> allIntervals()
{
    std::vector<Interval> result;
    for (int degree = 0; degree < 16; ++degree)
        for (int quality = 0; quality < 10; ++quality) {
            const Interval interval(static_cast<Degree>(degree), static_cast<Quality>(quality));
            if (interval.isValid())
                result.push_back(interval);
        }
    return result;
}

template <typename Action>
std::string messageOf(Action action)
{
    try {
        action();
    } catch (const CoreException &error) {
        return error.message();
    }
    return {};
}

/// Semitones that an interval really moves by: degree by letters, quality by its group.
int trueSize(const Interval &interval)
{
    const int degree = static_cast<int>(interval.value());
    const int quality = static_cast<int>(interval.alteration());
    const int plain = naturals[degree % 7] + degree / 7 * 12;
    if (degree == 9 || degree == 11)
        return plain;
    const int perfect[] = {-2, -1, 0, 0, 0, 1, 2};
    const int major[] = {-3, -2, -1, 0, 0, 1, 2};
    const bool isMajor = degree == 1 || degree == 2 || degree == 5 || degree == 6;
    return plain + (isMajor ? major : perfect)[quality];
}

TEST(PitchClass, textsGoRoundTripForAllSpellings)
{
    for (const PitchClass &pitchClass : allSpellings()) {
        EXPECT_EQ(PitchClass::fromString(pitchClass.toString()), pitchClass);
        const QString spoken =
            pitchClass.note().toString().toLower() + pitchClass.accidental().toString(false);
        EXPECT_EQ(PitchClass::fromString(spoken), pitchClass);
        EXPECT_EQ(PitchClass::fromPitch(PitchClass::toPitch(pitchClass, 4)), pitchClass);
        EXPECT_EQ(PitchClass::toPitch(pitchClass, 4).midi(), pitchClass.midi(4));
    }
    EXPECT_EQ(text(PitchClass()), "Invalid");
    EXPECT_EQ(messageOf([] { spelled("H"); }), "Invalid note name string: H.");
    EXPECT_EQ(messageOf([] { spelled("C%1"); }), "Invalid accidental string: %1.");
    EXPECT_EQ(messageOf([] { spelled("CB"); }), "Invalid accidental string: B.");
    EXPECT_EQ(messageOf([] { spelled(""); }), "Invalid note name string: .");
    EXPECT_FALSE(NoteName::isAValidString(QStringLiteral("Invalid")));
    EXPECT_FALSE(NoteAccidental::isAValidString(QString()));
    EXPECT_TRUE(NoteAccidental::isAValidString(QStringLiteral("doubleflat")));
}

TEST(PitchClass, brokenValuesRaiseOrStayInvalid)
{
    const PitchClass invalid;
    const PitchClass broken(NoteName::Value::C, static_cast<NoteAccidental::Value>(5));
    const Interval fifth(Degree::Fifth);
    for (const PitchClass &bad : {invalid, broken}) {
        EXPECT_FALSE(bad);
        EXPECT_EQ(bad.transposed(fifth), bad);
        EXPECT_EQ(bad.untransposed(fifth), bad);
        EXPECT_EQ(bad.augmented(), bad);
        EXPECT_TRUE(bad.enharmonics().isEmpty());
        EXPECT_TRUE(bad.interval(spelled("C")).empty());
        EXPECT_TRUE(spelled("C").interval(bad).empty());
        EXPECT_THROW(bad.tone(), CoreException);
        EXPECT_THROW(bad.midi(4), CoreException);
        EXPECT_THROW(bad.symbol(), CoreException);
        EXPECT_THROW(PitchClass::toPitch(bad, 4), CoreException);
    }
    EXPECT_FALSE(PitchClass::fromPitch(zarn::core::Pitch(1, 0)));
    EXPECT_FALSE(PitchClass::fromPitch(zarn::core::Pitch(0, 3)));
    const NoteName ninth(static_cast<NoteName::Value>(9));
    EXPECT_EQ(messageOf([&] { ninth.symbol(); }), "Invalid NoteName value: 9.");
    EXPECT_EQ(messageOf([] { NoteName().symbol(); }), "Invalid NoteName value: 7.");
    EXPECT_EQ(messageOf([&] { broken.accidental().symbol(); }), "Invalid NoteAccidental value: 5");
    EXPECT_THROW(NoteAccidental(static_cast<zarn::Accidental>(6)), CoreException);
}

TEST(NoteAccidental, engravedSignsConvertBothWays)
{
    EXPECT_EQ(NoteAccidental(zarn::Accidental::None), NoteAccidental::Value::Natural);
    for (int number = 1; number <= 5; ++number) {
        const auto sign = static_cast<zarn::Accidental>(number);
        EXPECT_EQ(NoteAccidental(sign).accidentalValue(), sign);
        EXPECT_EQ(NoteAccidental(sign).toString(false).toStdString(), accidentalToString(sign));
    }
    EXPECT_EQ(spelled("Ebb").symbol(), QStringLiteral("Ebb"));
    EXPECT_EQ(spelled("F#").symbol(), QStringLiteral("F") + QChar(0x266f));
}

TEST(NoteName, stepsWrapAround)
{
    NoteName name(NoteName::Value::B);
    EXPECT_EQ(++name, NoteName::Value::C);
    EXPECT_EQ(--name, NoteName::Value::B);
    NoteName invalid;
    EXPECT_EQ(++invalid, NoteName());
}

TEST(Tone, wrapsBothWaysFromAnyNumber)
{
    EXPECT_EQ(Tone(-1).value(), 11);
    EXPECT_EQ(Tone(25).value(), 1);
    for (const int number : {INT32_MIN, -13, -12, 0, 11, 12, INT32_MAX})
        EXPECT_EQ(Tone(number).value(), ((number % 12) + 12) % 12);
    EXPECT_EQ(Tone(3) + 4000000000u, Tone(3 + 4000000000u % 12));
    EXPECT_EQ(Tone(3) - 14, Tone(1));
    Tone tone(11);
    EXPECT_EQ(tone++, Tone(11));
    EXPECT_EQ(--tone, Tone(11));
    EXPECT_EQ(spelled("B#").tone(), Tone(0));
    EXPECT_EQ(spelled("B#").midi(4), 60);
    EXPECT_EQ(spelled("Cb").tone(), Tone(11));
    EXPECT_EQ(spelled("Cb").midi(5), 59);
}

TEST(Tone, olderIntervalsAreNamedByDistanceAndTritonesByLetters)
{
    for (int from = 0; from < 12; ++from)
        for (int to = 0; to < 12; ++to) {
            const Tone a(from);
            const Tone b(to);
            EXPECT_EQ(a.to(a.interval(b), a.intervalAlteration(b)), b) << from << " to " << to;
        }
    EXPECT_EQ(Tone(5).interval(Tone(11)), IntervalName::Fourth);
    EXPECT_EQ(Tone(11).interval(Tone(5)), IntervalName::Fifth);
    EXPECT_EQ(Tone(4) + IntervalName::Sixth, Tone(1));
    EXPECT_EQ(Tone(0).to(IntervalName::Seventh, IntervalAlteration::Diminished), Tone(9));
    EXPECT_THROW(Tone(0).to(IntervalName::Fifth, IntervalAlteration::Major), CoreException);
    EXPECT_THROW(Tone(0).to(IntervalName::Third, IntervalAlteration::Perfect), CoreException);
    EXPECT_THROW(Tone(0) + static_cast<IntervalName>(7), CoreException);
}

TEST(Tone, textStreamsReadOnlyTones)
{
    std::stringstream stream("0 11 12 5");
    Tone tone(3);
    EXPECT_TRUE(stream >> tone);
    EXPECT_TRUE(stream >> tone);
    EXPECT_EQ(tone, Tone(11));
    EXPECT_FALSE(stream >> tone);
    EXPECT_EQ(tone, Tone(11));
}

TEST(Tone, binaryStreamIsOneByteAndDamageIsRefused)
{
    BytesInMemory file;
    for (int number = 0; number < 12; ++number)
        ASSERT_TRUE(Tone(number).writeToStream(file, 1));
    EXPECT_EQ(file.bytes.size(), 12u);
    ASSERT_TRUE(file.seek(0));
    Tone tone;
    for (int number = 0; number < 12; ++number) {
        ASSERT_TRUE(tone.readFromStream(file, 1));
        EXPECT_EQ(tone, Tone(number));
    }
    EXPECT_FALSE(tone.readFromStream(file, 1)) << "the file ends";
    BytesInMemory damaged;
    damaged.bytes = {12};
    EXPECT_THROW(tone.readFromStream(damaged, 1), CoreException);
    EXPECT_EQ(tone, Tone(11));
}

TEST(Spelling, preferencesHaveTheirOwnSenseInEachFunction)
{
    EXPECT_EQ(text(PitchClass::fromPitch(61, true)), "Db");
    EXPECT_EQ(text(PitchClass::fromPitch(61, false)), "C#");
    EXPECT_EQ(Tone(1).toString(true), QStringLiteral("C#"));
    EXPECT_EQ(Tone(1).toString(false), QStringLiteral("Db"));
    for (int midi = -20; midi < 140; ++midi)
        for (const bool flag : {false, true}) {
            const PitchClass pitchClass = PitchClass::fromPitch(midi, flag);
            EXPECT_EQ(pitchClass.tone(), Tone(midi));
            EXPECT_NE(pitchClass.alterationSemitones(), flag ? 1 : -1);
            EXPECT_EQ(text(pitchClass), Tone(midi).toString(!flag).toStdString());
            EXPECT_TRUE(PitchClass::fromPitch(midi).contains(pitchClass));
        }
}

TEST(Spelling, alteringMovesOneSemitoneAndKeepsTheLetterWhileItCan)
{
    for (const PitchClass &pitchClass : allSpellings()) {
        EXPECT_EQ(pitchClass.augmented().tone(), pitchClass.tone() + 1);
        EXPECT_EQ(pitchClass.diminished().tone(), pitchClass.tone() - 1);
        EXPECT_EQ(pitchClass.augmented().note() == pitchClass.note(),
                  pitchClass.alterationSemitones() < 2);
        EXPECT_EQ(pitchClass.diminished().note() == pitchClass.note(),
                  pitchClass.alterationSemitones() > -2);
    }
    for (const auto &[from, to] : {std::pair("C##", "D#"), {"E##", "F##"}, {"B##", "C##"}})
        EXPECT_EQ(text(spelled(from).augmented()), to);
    for (const auto &[from, to] : {std::pair("Dbb", "Cb"), {"Fbb", "Ebb"}, {"Cbb", "Bbb"}})
        EXPECT_EQ(text(spelled(from).diminished()), to);
}

TEST(Spelling, enharmonicsShareTheKey)
{
    std::size_t total = 0;
    for (const PitchClass &pitchClass : allSpellings()) {
        const auto set = pitchClass.enharmonics();
        EXPECT_TRUE(set.contains(pitchClass));
        EXPECT_EQ(set.size(), pitchClass.tone() == Tone(8) ? 2 : 3);
        total += static_cast<std::size_t>(
            std::count_if(set.begin(), set.end(), [&](const PitchClass &other) {
                return other.tone() == pitchClass.tone();
            }));
    }
    EXPECT_EQ(total, 11u * 9 + 4);
    EXPECT_EQ(spelled("Cbb").enharmonics(),
              QSet<PitchClass>({spelled("Cbb"), spelled("A#"), spelled("Bb")}));
}

TEST(Transposition, pitchIsRightInEveryCellAndLetterWhereverADoubleAccidentalAllowsIt)
{
    int moved = 0;
    for (const PitchClass &from : allSpellings())
        for (int degree = 0; degree < 7; ++degree) {
            const Interval plain{static_cast<Degree>(degree)};
            const PitchClass to = from.transposed(plain);
            const int letter = (static_cast<int>(from.note().value()) + degree) % 7;
            const int target = naturals[static_cast<int>(from.note().value())]
                + from.alterationSemitones() + naturals[degree];
            const int alteration = (target - naturals[letter] + 18) % 12 - 6;
            EXPECT_EQ(to.tone(), Tone(target)) << text(from) << " + " << degree;
            if (alteration >= -2 && alteration <= 2) {
                EXPECT_EQ(static_cast<int>(to.note().value()), letter);
                EXPECT_EQ(to.alterationSemitones(), alteration);
                EXPECT_EQ(to.untransposed(plain), from);
            } else {
                ++moved;
            }
        }
    EXPECT_EQ(moved, 16);
}

TEST(Transposition, everyIntervalMovesByItsSizeAndBackAgain)
{
    for (const PitchClass &from : allSpellings())
        for (const Interval &interval : allIntervals()) {
            const PitchClass to = from.transposed(interval);
            EXPECT_EQ(to.tone(), from.tone() + trueSize(interval));
            EXPECT_EQ(from.untransposed(interval).tone(), from.tone() - trueSize(interval));
            const int letters =
                (static_cast<int>(to.note().value()) + 7 - static_cast<int>(from.note().value()))
                % 7;
            if (letters == static_cast<int>(interval.value()) % 7) {
                EXPECT_EQ(to.untransposed(interval), from) << text(from);
            }
        }
    EXPECT_EQ(text(spelled("E").transposed(Interval(Degree::Second, Quality::Diminished))), "Fb");
    EXPECT_EQ(text(spelled("C").transposed(Interval(Degree::Ninth))), "D");
    EXPECT_EQ(text(spelled("C").transposed(Interval(Degree::Octave, Quality::Augmented))), "C#");
    EXPECT_EQ(text(spelled("C").transposed(Interval(Degree::Ninth, Quality::Major))), "C")
        << "there is no major ninth";
    EXPECT_EQ(text(spelled("C").transposed(Interval())), "C");
}

TEST(Transposition, untransposedFindsASpellingThatLeadsHereIfThereIsOne)
{
    const auto spellings = allSpellings();
    for (const Interval &interval : allIntervals())
        for (const PitchClass &to : spellings) {
            const bool isReachable =
                std::any_of(spellings.begin(), spellings.end(), [&](const PitchClass &from) {
                    return from.transposed(interval) == to;
                });
            if (isReachable) {
                EXPECT_EQ(to.untransposed(interval).transposed(interval), to)
                    << text(to) << ' ' << interval.toString().toStdString();
            }
        }
}

TEST(Interval, tableHoldsTheListedCells)
{
    std::string names;
    for (int degree = 0; degree < 13; ++degree) {
        for (int quality = 0; quality < 7; ++quality) {
            const Interval interval(static_cast<Degree>(degree), static_cast<Quality>(quality));
            names += interval.isValid() ? interval.toString().toStdString() + ' '
                    + std::to_string(interval.semitones()) + ", "
                                        : "- ";
            if (!interval.isValid()) {
                EXPECT_EQ(interval.toString(), QStringLiteral("na"));
                EXPECT_EQ(interval.semitones(), 0);
            }
        }
        names += '\n';
    }
    EXPECT_EQ(names,
              "ddim1 -2, dim1 -1, - P1 0, - aug1 1, daug1 2, \n"
              "- dim2 0, m2 1, - M2 2, aug2 3, daug2 4, \n"
              "- dim3 2, m3 3, - M3 4, aug3 4, daug3 5, \n"
              "ddim4 3, dim4 4, - P4 5, - aug4 6, daug4 7, \n"
              "ddim5 5, dim5 6, - P5 7, - aug5 8, daug5 9, \n"
              "- dim6 7, m6 8, - M6 9, aug6 10, daug6 11, \n"
              "- dim7 9, m7 10, - M7 11, aug7 12, daug7 13, \n"
              "ddim8 10, dim8 11, - P8 12, - aug8 13, daug8 14, \n"
              "ddim9 12, dim9 13, - P9 14, - aug9 15, daug9 16, \n"
              "- - - na 0, - - - \n"
              "ddim11 15, dim11 16, - P11 17, - aug11 18, daug11 19, \n"
              "- - - na 0, - - - \n"
              "ddim13 19, dim13 20, - P13 21, - aug13 22, daug13 23, \n");
}

TEST(Interval, nothingIsReadPastTheTable)
{
    for (const int degree : {0, 8, 9, 12, 13, 14, 15, 36, 37, 255})
        for (const int quality : {3, 7, 8, 9, 255}) {
            const Interval interval(static_cast<Degree>(degree), static_cast<Quality>(quality));
            if (quality == 3 && degree <= 12)
                continue;
            EXPECT_FALSE(interval.isValid());
            EXPECT_EQ(interval.semitones(), 0);
            EXPECT_EQ(interval.alterationSemitones(), 0);
            EXPECT_EQ(interval + 1, Interval());
            EXPECT_EQ(interval - 0, Interval());
            EXPECT_EQ(spelled("F#").transposed(interval), spelled("F#"));
        }
    EXPECT_EQ(static_cast<int>(Interval().alteration()), 8);
    EXPECT_EQ(static_cast<int>(Interval().value()), 14);
    EXPECT_EQ(Interval(static_cast<Degree>(13)), Interval());
    EXPECT_EQ(Interval(Degree::Third), Interval(Degree::Third, Quality::Major));
    EXPECT_EQ(Interval(Degree::Thirteenth), Interval(Degree::Thirteenth, Quality::Perfect));
}

TEST(Interval, stepsVisitTheValidQualitiesOfTheDegree)
{
    for (const Interval &interval : allIntervals()) {
        EXPECT_EQ(interval + 0, interval);
        const Interval next = interval + 1;
        EXPECT_EQ(interval - (-1), next);
        EXPECT_EQ(interval + 1u, next);
        if (next.isValid()) {
            EXPECT_EQ(next - 1, interval);
            EXPECT_EQ(next + (-1), interval);
            EXPECT_GT(next, interval);
            EXPECT_EQ(interval + 2, next + 1);
        }
    }
    EXPECT_EQ((Interval(Degree::Third) + 1).toString(), QStringLiteral("aug3"));
    EXPECT_EQ(Interval(Degree::Third, Quality::DoublyAugmented) + 1, Interval());
    EXPECT_EQ(Interval(Degree::Fifth) + INT32_MIN, Interval());
    EXPECT_EQ(Interval(static_cast<Degree>(9), Quality::Perfect) + 1, Interval());
    EXPECT_EQ(Interval(Degree::Second, Quality::Perfect) + 1, Interval());
}

TEST(Interval, alterationSemitonesGroupTheDegreesInTheirOwnWay)
{
    const auto offset = [](Degree degree, Quality quality) {
        return Interval(degree, quality).alterationSemitones();
    };
    EXPECT_EQ(offset(Degree::Unison, Quality::DoublyDiminished), -3);
    EXPECT_EQ(Interval(Degree::Unison, Quality::DoublyDiminished).semitones(), -2);
    EXPECT_EQ(offset(Degree::Octave, Quality::Diminished), -2);
    EXPECT_EQ(offset(Degree::Sixth, Quality::DoublyDiminished), -3);
    EXPECT_EQ(offset(Degree::Fourth, Quality::DoublyDiminished), -2);
    EXPECT_EQ(offset(Degree::Thirteenth, Quality::Diminished), -1);
    EXPECT_EQ(offset(Degree::Eleventh, Quality::Minor), -1);
    EXPECT_EQ(offset(Degree::Ninth, Quality::DoublyAugmented), 2);
    EXPECT_EQ(offset(static_cast<Degree>(9), Quality::Augmented), 0);
}

TEST(Interval, textsAndXmlGoRoundTrip)
{
    QDomDocument document;
    for (const Interval &interval : allIntervals()) {
        const auto read = Interval::fromXML(interval.toXML(document));
        const bool isNamed =
            static_cast<int>(interval.value()) != 9 && static_cast<int>(interval.value()) != 11;
        EXPECT_EQ(read, isNamed ? interval : Interval(Degree::Invalid, Quality::Perfect));
    }
    EXPECT_EQ(Interval().toXML(document).attribute(QStringLiteral("interval")),
              QStringLiteral("invalid"));
    EXPECT_EQ(Interval::fromXML(Interval().toXML(document)), Interval());
    EXPECT_EQ(Interval::fromXML(QDomElement()), Interval());
    EXPECT_EQ(Interval::valueFromString(QStringLiteral("ninth")), Degree::Ninth);
    EXPECT_EQ(static_cast<int>(Interval::valueFromString(QStringLiteral("Tenth"))), 14);
    EXPECT_EQ(static_cast<int>(Interval::alterationFromString(QStringLiteral("big"))), 8);
    for (const int number : {9, 11, 13, 14, 255})
        EXPECT_EQ(messageOf([&] { Interval::valueToString(static_cast<Degree>(number)); }),
                  "Bad interval value.");
    for (const int number : {7, 8, 255})
        EXPECT_EQ(messageOf([&] { Interval::alterationToString(static_cast<Quality>(number)); }),
                  "Bad interval alteration value.");
}

TEST(Interval, fromPitchesListsEverySizeUpToTheOctaveInOrder)
{
    std::size_t total = 0;
    for (int distance = 0; distance < 12; ++distance) {
        const auto &list = Interval::fromPitches(60, 60 + distance);
        EXPECT_EQ(Interval::fromPitches(72, 48 + distance), list);
        EXPECT_TRUE(std::is_sorted(list.begin(), list.end()));
        EXPECT_LE(list.size(), 5u);
        for (const Interval &interval : list) {
            EXPECT_EQ((interval.semitones() + 12) % 12, distance);
            EXPECT_LE(interval.value(), Degree::Octave);
        }
        total += list.size();
    }
    EXPECT_EQ(total, 40u) << "every valid cell up to the octave stands in one list";
    std::string names;
    for (const Interval &interval : Interval::fromPitches(60, 72))
        names += interval.toString().toStdString() + ' ';
    EXPECT_EQ(names, "P1 dim2 aug7 P8 ");
}

TEST(Interval, fromPitchClassesIsTheInverseOfTransposing)
{
    const auto intervals = allIntervals();
    for (const PitchClass &from : allSpellings())
        for (const PitchClass &to : allSpellings()) {
            std::vector<Interval> expected;
            std::copy_if(intervals.begin(), intervals.end(), std::back_inserter(expected),
                         [&](const Interval &interval) { return from.transposed(interval) == to; });
            ASSERT_EQ(from.interval(to), expected) << text(from) << " to " << text(to);
        }
    EXPECT_EQ(spelled("C").interval(spelled("E#")).front(),
              Interval(Degree::Third, Quality::Augmented));
}

} // namespace
