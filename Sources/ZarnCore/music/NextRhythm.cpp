// SPDX-License-Identifier: MIT
#include <ZarnCore/music/NextRhythm.h>

#include <ZarnCore/ZarnAssert.h>

#include <optional>

namespace zarn {

using utils::rational;

namespace {

using NoteValue = RhythmValue::NoteValue;

constexpr NoteValue next(NoteValue noteValue) noexcept
{
    return static_cast<NoteValue>(static_cast<int>(noteValue) + 1);
}

RhythmValue tuplet(NoteValue noteValue, RhythmValue::TupletRatio ratio)
{
    RhythmValue rhythm(noteValue);
    rhythm.setPrimaryTupletRatio(ratio);
    return rhythm;
}

/// The plain note of a length with numerator 1, from a quarter to a 64th.
std::optional<RhythmValue> plainNote(const rational &length)
{
    if (length.numerator() != 1 || length.denominator() > 16)
        return std::nullopt;
    const NoteValue noteValue = RhythmValue::noteValueFromTimeUnit(length);
    if (noteValue == NoteValue::Invalid)
        return std::nullopt;
    return RhythmValue(noteValue);
}

/// The longest note of a tuplet t in the time of 2 that fits, for the first t that divides the
/// denominator and has one.
std::optional<RhythmValue> longestTuplet(const rational &length)
{
    for (const std::uint8_t notes : {3, 5, 7, 9}) {
        if (length.denominator() % notes != 0)
            continue;
        for (auto value = NoteValue::Eighth; value <= NoteValue::SixtyFourth; value = next(value)) {
            const RhythmValue rhythm = tuplet(value, {notes, 2});
            if (rhythm.getLength() <= length)
                return rhythm;
        }
    }
    return std::nullopt;
}

/// A dotted note that is the whole rest, or the longest plain note that fits.
std::optional<RhythmValue> longestNote(const rational &length)
{
    for (auto value = NoteValue::Whole; value <= NoteValue::SixtyFourth; value = next(value)) {
        const RhythmValue dotted(value, 1);
        if (dotted.getLength() == length)
            return dotted;
        const RhythmValue plain(value);
        if (plain.getLength() <= length)
            return plain;
    }
    return std::nullopt;
}

/// One note that a tuplet of its own stretches to the length: a quarter, or the longest shorter
/// note with which both terms fit in 8 bits. A term of 1 would be no tuplet, so both are doubled.
RhythmValue stretchedNote(const rational &length)
{
    for (auto value = NoteValue::Quarter; value < NoteValue::Invalid; value = next(value)) {
        const rational ratio = length / RhythmValue::noteValueToTimeUnit(value);
        if (ratio == 1)
            return RhythmValue(value);
        const std::int64_t factor = ratio.numerator() == 1 || ratio.denominator() == 1 ? 2 : 1;
        if (ratio.numerator() <= 255 / factor && ratio.denominator() <= 255 / factor)
            return tuplet(value,
                          {static_cast<std::uint8_t>(ratio.denominator() * factor),
                           static_cast<std::uint8_t>(ratio.numerator() * factor)});
    }
    ZARN_RAISE_IN("zarn::RhythmValue::rhythms",
                  "No tuplet completes a length of " + length.toString() + " quarters.");
}

} // namespace

RhythmValue nextRhythm(const rational &length)
{
    if (const auto rhythm = plainNote(length))
        return *rhythm;
    if (length == rational(3, 4))
        return RhythmValue(NoteValue::Eighth, 1);
    if (const auto rhythm = longestTuplet(length))
        return *rhythm;
    if (const auto rhythm = longestNote(length))
        return *rhythm;
    return stretchedNote(length);
}

} // namespace zarn
