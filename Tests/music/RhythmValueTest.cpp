// SPDX-License-Identifier: MIT
#include "BytesInMemory.h"

#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <ZarnCore/ZarnException.h>

#include <gtest/gtest.h>

#include <random>

namespace {

using utils::rational;
using zarn::CoreException;
using zarn::NoteDynamic;
using zarn::RhythmValue;
using zarn::TimeSignature;
using NoteValue = RhythmValue::NoteValue;

RhythmValue rhythm(NoteValue value, unsigned dots, RhythmValue::TupletRatio primary = {0, 0},
                   RhythmValue::TupletRatio secondary = {0, 0})
{
    RhythmValue result(value, dots);
    result.setPrimaryTupletRatio(primary);
    result.setSecondaryTupletRatio(secondary);
    return result;
}

std::vector<RhythmValue> split(const rational &length)
{
    std::vector<RhythmValue> result;
    RhythmValue::rhythms(length, result);
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

TEST(RhythmValue, lengthsFollowTheDefinitionStepByStep)
{
    for (int number = 0; number < 11; ++number)
        for (unsigned dots = 0; dots <= 5; ++dots)
            for (const RhythmValue::TupletRatio &primary : {RhythmValue::TupletRatio(0, 0),
                                                            {3, 2},
                                                            {5, 4},
                                                            {7, 4},
                                                            {1, 1},
                                                            {3, 0},
                                                            {0, 2},
                                                            {1, 3},
                                                            {9, 8},
                                                            {255, 254}})
                for (const RhythmValue::TupletRatio &secondary :
                     {RhythmValue::TupletRatio(0, 0), {3, 2}, {5, 4}, {0, 2}, {255, 2}}) {
                    const auto value = static_cast<NoteValue>(number);
                    const rational unit = RhythmValue::noteValueToTimeUnit(value);
                    rational expected = unit;
                    for (unsigned dot = 1; dot <= std::min(dots, 3u); ++dot)
                        expected += unit / (std::int64_t(1) << dot);
                    if (primary.first > 1 && primary.second > 1) {
                        expected *= rational(primary.second, primary.first);
                        if (secondary.first != 0 && secondary.second != 0)
                            expected *= rational(secondary.second, secondary.first);
                    }
                    const RhythmValue actual = rhythm(value, dots, primary, secondary);
                    EXPECT_EQ(actual.getLength(), expected) << actual.toQString().toStdString();
                }
}

TEST(RhythmValue, noteValuesAndTimeUnitsAreInverse)
{
    for (int number = 0; number < 11; ++number) {
        const auto value = static_cast<NoteValue>(number);
        EXPECT_EQ(RhythmValue::noteValueFromTimeUnit(RhythmValue::noteValueToTimeUnit(value)),
                  value);
    }
    EXPECT_EQ(RhythmValue::noteValueToTimeUnit(NoteValue::Long), rational(16));
    EXPECT_EQ(RhythmValue::noteValueToTimeUnit(NoteValue::TwoHundredFiftySixth), rational(1, 64));
    for (const rational &stranger : {rational(), rational(3), rational(32), rational(1, 128),
                                     rational(-1), rational(2, 3), rational(4, 3)})
        EXPECT_EQ(static_cast<int>(RhythmValue::noteValueFromTimeUnit(stranger)), 11) << stranger;
    const auto outside = static_cast<NoteValue>(11);
    EXPECT_THROW(RhythmValue::noteValueToTimeUnit(outside), CoreException);
    EXPECT_THROW(RhythmValue(outside, 0), CoreException);
    RhythmValue unchanged(NoteValue::Half, 2);
    EXPECT_THROW(unchanged.setNoteValue(static_cast<NoteValue>(200)), CoreException);
    EXPECT_EQ(unchanged.getLength(), rational(7, 2));
}

TEST(RhythmValue, everySetterRenewsTheLength)
{
    RhythmValue value;
    EXPECT_EQ(value.getLength(), 1);
    value.setNoteValue(NoteValue::Eighth);
    EXPECT_EQ(value.getLength(), rational(1, 2));
    value.setPrimaryTupletRatio({3, 2});
    EXPECT_EQ(value.getLength(), rational(1, 3));
    value.setSecondaryTupletRatio({5, 4});
    EXPECT_EQ(value.getLength(), rational(4, 15));
    value.unsetPrimaryTupletRatio();
    EXPECT_EQ(value.getLength(), rational(1, 2)) << "a nested tuplet alone counts for nothing";
    value.setPrimaryTupletRatio({3, 2});
    value.unsetSecondaryTupletRatio();
    value.setAugmentationDot(1);
    EXPECT_EQ(value.getLength(), rational(1, 2));
    EXPECT_NE(value, RhythmValue(NoteValue::Eighth));
    EXPECT_FALSE(value < RhythmValue(NoteValue::Eighth));
    EXPECT_LT(value, RhythmValue(NoteValue::Quarter));
}

TEST(RhythmValue, textNamesEveryPart)
{
    EXPECT_EQ(RhythmValue().toQString(),
              QStringLiteral("Quarter;Dots=0;PriTuplet=0/0;SecTuplet=0/0"));
    EXPECT_EQ(rhythm(NoteValue::HundredTwentyEighth, 12, {11, 8}, {255, 254}).toQString(),
              QStringLiteral("128th;Dots=12;PriTuplet=11/8;SecTuplet=255/254"));
}

TEST(Rhythms, knownLengthsAreWrittenAsExpected)
{
    EXPECT_TRUE(split(0).empty());
    EXPECT_EQ(split(rational(3, 4)), std::vector<RhythmValue>({rhythm(NoteValue::Eighth, 1)}));
    EXPECT_EQ(split(rational(1, 3)),
              std::vector<RhythmValue>({rhythm(NoteValue::Eighth, 0, {3, 2})}));
    EXPECT_EQ(split(3), std::vector<RhythmValue>({rhythm(NoteValue::Half, 1)}));
    EXPECT_EQ(
        split(5),
        std::vector<RhythmValue>({rhythm(NoteValue::Whole, 0), rhythm(NoteValue::Quarter, 0)}));
    EXPECT_EQ(split(rational(1, 16)),
              std::vector<RhythmValue>({rhythm(NoteValue::SixtyFourth, 0)}));
    EXPECT_EQ(split(rational(1, 32)),
              std::vector<RhythmValue>({rhythm(NoteValue::Quarter, 0, {64, 2})}))
        << "a numerator of 1 is no tuplet: both terms are doubled";
    EXPECT_EQ(split(rational(1, 128)),
              std::vector<RhythmValue>({rhythm(NoteValue::Eighth, 0, {128, 2})}))
        << "256 does not fit in 8 bits";
}

TEST(Rhythms, whateverComesOutSumsExactlyOrNothingComesOut)
{
    int written = 0;
    int refused = 0;
    for (std::int64_t denominator = 1; denominator <= 300; ++denominator)
        for (std::int64_t numerator = 1; numerator <= 2 * denominator;
             numerator += 1 + numerator / 24) {
            const rational length(numerator, denominator);
            const RhythmValue before(NoteValue::Long, 3);
            std::vector<RhythmValue> out = {before};
            try {
                RhythmValue::rhythms(length, out);
                rational sum;
                for (const RhythmValue &value : out)
                    sum += value.getLength();
                ASSERT_EQ(sum, length + before.getLength()) << length;
                ++written;
            } catch (const CoreException &) {
                ASSERT_EQ(out.size(), 1u) << length;
                ASSERT_GT(length.denominator(), 255) << length;
                ++refused;
            }
            ASSERT_EQ(out.front(), before);
        }
    EXPECT_GT(written, 10 * refused);
    for (const rational &impossible :
         {rational(-1, 4), rational(1, 257), rational(65537), rational(1, INT64_MAX)})
        EXPECT_THROW(split(impossible), CoreException) << impossible;
}

TEST(RhythmValue, streamIsSixBytesAndDamageIsRefused)
{
    const RhythmValue value = rhythm(NoteValue::Sixteenth, 2, {3, 2}, {5, 4});
    BytesInMemory file;
    ASSERT_TRUE(value.writeToStream(file, 1));
    EXPECT_EQ(file.bytes, std::vector<std::uint8_t>({6, 2, 3, 2, 5, 4}));
    ASSERT_TRUE(file.seek(0));
    RhythmValue read;
    ASSERT_TRUE(read.readFromStream(file, 1));
    EXPECT_EQ(read, value);
    EXPECT_EQ(read.getLength(), value.getLength());
    EXPECT_FALSE(read.readFromStream(file, 1)) << "the file ends";
    EXPECT_TRUE(file.hasError());
    BytesInMemory damaged;
    damaged.bytes = {11, 0, 0, 0, 0, 0};
    EXPECT_THROW(read.readFromStream(damaged, 1), CoreException);
    EXPECT_EQ(read, value);
    EXPECT_THROW(RhythmValue(NoteValue::Half, 256).writeToStream(file, 1), CoreException);
}

TEST(TimeSignature, zeroDenominatorIsStoredAndRaises)
{
    TimeSignature time(6, 8);
    EXPECT_EQ(time.timeUnit(), rational(1, 2));
    EXPECT_EQ(time.barLength(), rational(3));
    EXPECT_EQ(messageOf([&] { time.setDenominator(0); }), "Assertion failed: _denominator != 0");
    EXPECT_EQ(time.getDenominator(), 0u);
    EXPECT_THROW(time.timeUnit(), CoreException);
    EXPECT_EQ(messageOf([] { TimeSignature(4, 0); }), "Assertion failed: _denominator != 0");
    EXPECT_EQ(TimeSignature(), TimeSignature(4, 4));
    EXPECT_NE(TimeSignature(3, 4), TimeSignature(6, 8));
}

TEST(TimeSignature, streamIsTwoShortsAndAZeroRaises)
{
    BytesInMemory file;
    ASSERT_TRUE(TimeSignature(40000, 16).writeToStream(file, 1));
    EXPECT_EQ(file.bytes, std::vector<std::uint8_t>({0x40, 0x9c, 16, 0}));
    ASSERT_TRUE(file.seek(0));
    TimeSignature time;
    ASSERT_TRUE(time.readFromStream(file, 1));
    EXPECT_EQ(time, TimeSignature(40000, 16));
    BytesInMemory damaged;
    damaged.bytes = {4, 0, 0, 0};
    EXPECT_THROW(time.readFromStream(damaged, 1), CoreException);
    BytesInMemory cut;
    cut.bytes = {4, 0, 4};
    EXPECT_FALSE(TimeSignature().readFromStream(cut, 1));
    EXPECT_THROW(TimeSignature(65536, 4).writeToStream(file, 1), CoreException);
}

TEST(NoteDynamic, parserKnowsTheWholeScaleAndPrinterItsMiddle)
{
    const std::vector<const char *> texts = {"None", "PPPPPPP", "PPPPPP", "PPPPP",  "PPPP",   "PPP",
                                             "PP",   "P",       "MP",     "MF",     "F",      "FF",
                                             "FFF",  "FFFF",    "FFFFF",  "FFFFFF", "FFFFFFF"};
    for (int number = 0; number < static_cast<int>(texts.size()); ++number) {
        const char *const text = texts[static_cast<std::size_t>(number)];
        const NoteDynamic dynamic(static_cast<NoteDynamic::Value>(number));
        EXPECT_EQ(NoteDynamic::stringToInt(text), number);
        if (number == 0 || (number >= 4 && number <= 13))
            EXPECT_EQ(dynamic.toString(), text);
        else
            EXPECT_EQ(messageOf([&] { dynamic.toString(); }),
                      "Invalid NoteDynamic value: " + std::to_string(number));
    }
    EXPECT_EQ(NoteDynamic::stringToInt("mf"), 9);
    for (const char *unknown : {"", "FFFFFFFF", "PF", "SFZ"})
        EXPECT_EQ(NoteDynamic::stringToInt(unknown), -1);
    EXPECT_THROW(NoteDynamic(static_cast<NoteDynamic::Value>(17)).toString(), CoreException);
}

} // namespace
