// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnTone.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <filesystem/FileHandle.h>

#include <array>
#include <istream>
#include <ostream>

namespace zarn {

namespace {

struct OlderInterval {
    IntervalName name;
    IntervalAlteration alteration;
};

/// Names of the distances of 0 to 11 semitones; the tritone is decided by the letters.
constexpr std::array<OlderInterval, 12> distances = {{
    {IntervalName::Unison, IntervalAlteration::Perfect},
    {IntervalName::Second, IntervalAlteration::Minor},
    {IntervalName::Second, IntervalAlteration::Major},
    {IntervalName::Third, IntervalAlteration::Minor},
    {IntervalName::Third, IntervalAlteration::Major},
    {IntervalName::Fourth, IntervalAlteration::Perfect},
    {IntervalName::Fourth, IntervalAlteration::Augmented},
    {IntervalName::Fifth, IntervalAlteration::Perfect},
    {IntervalName::Sixth, IntervalAlteration::Minor},
    {IntervalName::Sixth, IntervalAlteration::Major},
    {IntervalName::Seventh, IntervalAlteration::Minor},
    {IntervalName::Seventh, IntervalAlteration::Major},
}};

constexpr std::array<std::array<OlderInterval, 12>, 12> olderIntervals = [] {
    std::array<std::array<OlderInterval, 12>, 12> table = {};
    for (std::size_t from = 0; from < 12; ++from)
        for (std::size_t to = 0; to < 12; ++to) {
            const std::size_t distance = (to + 12 - from) % 12;
            table[from][to] = distances[distance];
            const int letters = spelling::withSharps[to] / spelling::accidentalCount
                - spelling::withSharps[from] / spelling::accidentalCount;
            if (distance == 6 && spelling::wrapped(letters, spelling::letterCount) == 4)
                table[from][to] = {IntervalName::Fifth, IntervalAlteration::Diminished};
        }
    return table;
}();

const OlderInterval &olderInterval(Tone from, Tone to) noexcept
{
    return olderIntervals[static_cast<std::size_t>(from.value())]
                         [static_cast<std::size_t>(to.value())];
}

} // namespace

Tone::Tone(const PitchClass &pitchClass) : Tone(pitchClass.note(), pitchClass.accidental()) { }

void Tone::raiseInvalidSpelling()
{
    ZARN_RAISE_IN("zarn::Tone::Tone", "An invalid spelling has no tone.");
}

QString Tone::toString(bool preferSharp) const
{
    return noteName(preferSharp).toString() + accidental(preferSharp).toString(true);
}

Tone Tone::operator+(IntervalName name) const
{
    ZARN_ASSERT_IN("zarn::Tone::operator+", name <= IntervalName::Seventh);
    return *this + spelling::plainSizes[static_cast<std::size_t>(name)];
}

Tone Tone::to(IntervalName name, IntervalAlteration alteration) const
{
    ZARN_ASSERT_IN("zarn::Tone::to", name <= IntervalName::Seventh);
    ZARN_ASSERT_IN("zarn::Tone::to", alteration <= IntervalAlteration::Augmented);
    const bool isPerfect =
        name == IntervalName::Unison || name == IntervalName::Fourth || name == IntervalName::Fifth;
    const bool isPlain = alteration == IntervalAlteration::Perfect;
    const bool isMinorOrMajor =
        alteration == IntervalAlteration::Minor || alteration == IntervalAlteration::Major;
    ZARN_ASSERT_IN("zarn::Tone::to", isPerfect ? !isMinorOrMajor : !isPlain);
    // The qualities are those of `Interval` without the double ones.
    const int offset =
        spelling::qualityOffset(static_cast<int>(name), static_cast<int>(alteration) + 1);
    return *this + name + offset;
}

IntervalName Tone::interval(Tone other) const noexcept
{
    return olderInterval(*this, other).name;
}

IntervalAlteration Tone::intervalAlteration(Tone other) const noexcept
{
    return olderInterval(*this, other).alteration;
}

bool Tone::readFromStream(filesystem::FileHandle &file, int /*version*/)
{
    std::uint8_t byte = 0;
    if (!file.readByte(byte))
        return false;
    if (byte > 11)
        ZARN_RAISE_IN("zarn::Tone::readFromStream", "Invalid tone: " + std::to_string(byte) + '.');
    _value = byte;
    return true;
}

bool Tone::writeToStream(filesystem::FileHandle &file, int /*version*/) const
{
    return file.writeByte(static_cast<std::uint8_t>(_value));
}

std::ostream &operator<<(std::ostream &stream, Tone tone)
{
    return stream << tone.value();
}

std::istream &operator>>(std::istream &stream, Tone &tone)
{
    int value = 0;
    if (stream >> value) {
        if (value >= 0 && value <= 11)
            tone = Tone(value);
        else
            stream.setstate(std::ios::failbit);
    }
    return stream;
}

} // namespace zarn
