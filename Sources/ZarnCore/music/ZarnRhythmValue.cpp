// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/NextRhythm.h>
#include <filesystem/FileHandle.h>

#include <array>

namespace zarn {

using utils::rational;

namespace {

using NoteValue = RhythmValue::NoteValue;

static_assert(sizeof(RhythmValue) == 24, "every beat carries one");

constexpr std::int64_t longestLength = 65536;

constexpr int noteValueCount = static_cast<int>(NoteValue::Invalid);

constexpr std::array<const char *, noteValueCount> labels = {
    "Long;%0",      "DWhole;%0",       "Whole;%0",       "Half;%0",  "Quarter;%0", "Eighth;%0",
    "Sixteenth;%0", "ThirtySecond;%0", "SixtyFourth;%0", "128th;%0", "256th;%0"};

/// A note value is 2 to this power of a quarter.
constexpr int exponentOf(NoteValue noteValue) noexcept
{
    return static_cast<int>(NoteValue::Quarter) - static_cast<int>(noteValue);
}

void requireNoteValue(NoteValue noteValue, const char *function)
{
    if (noteValue >= NoteValue::Invalid)
        ZARN_RAISE_IN(function,
                      "Invalid NoteValue: " + std::to_string(static_cast<int>(noteValue)) + '.');
}

} // namespace

RhythmValue::RhythmValue(NoteValue noteValue, unsigned augmentationDot) : _noteValue(noteValue)
{
    requireNoteValue(noteValue, "zarn::RhythmValue::RhythmValue");
    setAugmentationDot(augmentationDot);
    _calculateLength();
}

void RhythmValue::setNoteValue(NoteValue noteValue)
{
    requireNoteValue(noteValue, "zarn::RhythmValue::setNoteValue");
    _noteValue = noteValue;
    _dirty = true;
}

void RhythmValue::setAugmentationDot(unsigned dots)
{
    ZARN_ASSERT_IN("zarn::RhythmValue::setAugmentationDot", dots <= 255);
    _augmentationDot = static_cast<std::uint8_t>(dots);
    _dirty = true;
}

/// With d dots a note is (2^(d+1) - 1) / 2^d of its value. Everything is a product of small terms,
/// so one reduction at the end is enough.
void RhythmValue::_calculateLength() const
{
    const int dots = _augmentationDot < 3 ? static_cast<int>(_augmentationDot) : 3;
    const int exponent = exponentOf(_noteValue) - dots;
    std::int64_t numerator = (std::int64_t(2) << dots) - 1;
    std::int64_t denominator = 1;
    if (exponent < 0)
        denominator <<= -exponent;
    else
        numerator <<= exponent;
    if (hasPrimaryTuplet()) {
        numerator *= _primaryTuplet.second;
        denominator *= _primaryTuplet.first;
        if (_secondaryTuplet.first != 0 && _secondaryTuplet.second != 0) {
            numerator *= _secondaryTuplet.second;
            denominator *= _secondaryTuplet.first;
        }
    }
    _length = rational(numerator, denominator);
    _dirty = false;
}

QString RhythmValue::toQString() const
{
    const QString details = QStringLiteral("Dots=%0;PriTuplet=%1/%2;SecTuplet=%3/%4")
                                .arg(getAugmentationDot())
                                .arg(_primaryTuplet.first)
                                .arg(_primaryTuplet.second)
                                .arg(_secondaryTuplet.first)
                                .arg(_secondaryTuplet.second);
    return QString::fromLatin1(labels[static_cast<std::size_t>(_noteValue)]).arg(details);
}

rational RhythmValue::noteValueToTimeUnit(NoteValue noteValue)
{
    requireNoteValue(noteValue, "zarn::RhythmValue::noteValueToTimeUnit");
    const int exponent = exponentOf(noteValue);
    return exponent < 0 ? rational(1, std::int64_t(1) << -exponent)
                        : rational(std::int64_t(1) << exponent);
}

RhythmValue::NoteValue RhythmValue::noteValueFromTimeUnit(const rational &timeUnit) noexcept
{
    for (int number = 0; number < noteValueCount; ++number) {
        const auto noteValue = static_cast<NoteValue>(number);
        const int exponent = exponentOf(noteValue);
        const std::int64_t power = std::int64_t(1) << (exponent < 0 ? -exponent : exponent);
        if (timeUnit.numerator() == (exponent < 0 ? 1 : power)
            && timeUnit.denominator() == (exponent < 0 ? power : 1))
            return noteValue;
    }
    return NoteValue::Invalid;
}

bool RhythmValue::readFromStream(filesystem::FileHandle &file, int /*version*/)
{
    std::array<std::uint8_t, 6> bytes = {};
    if (!file.readBlock(bytes.data(), static_cast<std::int64_t>(bytes.size())))
        return false;
    requireNoteValue(static_cast<NoteValue>(bytes[0]), "zarn::RhythmValue::readFromStream");
    _noteValue = static_cast<NoteValue>(bytes[0]);
    _augmentationDot = bytes[1];
    _primaryTuplet = {bytes[2], bytes[3]};
    _secondaryTuplet = {bytes[4], bytes[5]};
    _dirty = true;
    return true;
}

bool RhythmValue::writeToStream(filesystem::FileHandle &file, int /*version*/) const
{
    const std::array<std::uint8_t, 6> bytes = {static_cast<std::uint8_t>(_noteValue),
                                               _augmentationDot,
                                               _primaryTuplet.first,
                                               _primaryTuplet.second,
                                               _secondaryTuplet.first,
                                               _secondaryTuplet.second};
    return file.writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
}

void RhythmValue::rhythms(const rational &length, std::vector<RhythmValue> &out)
{
    if (length < 0 || length > longestLength)
        ZARN_RAISE_IN("zarn::RhythmValue::rhythms",
                      "A length of " + length.toString() + " quarters cannot be written.");
    std::vector<RhythmValue> result;
    for (rational rest = length; !rest.isZero(); rest -= result.back().getLength())
        result.push_back(nextRhythm(rest));
    out.insert(out.end(), result.begin(), result.end());
}

} // namespace zarn
