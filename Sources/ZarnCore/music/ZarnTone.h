// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnSpellingTables.h>

#include <QString>

#include <iosfwd>

namespace filesystem {
class FileHandle;
}

namespace zarn {

class PitchClass;

/// The older names of intervals inside an octave: the degree alone, and its quality.
enum class IntervalName : std::uint8_t { Unison, Second, Third, Fourth, Fifth, Sixth, Seventh };
enum class IntervalAlteration : std::uint8_t { Diminished, Minor, Perfect, Major, Augmented };

/// A pitch class without a spelling: one of the twelve keys, C being 0.
class ZARNCORE_EXPORT Tone {
public:
    /// C.
    constexpr Tone() noexcept = default;

    /// Any number of semitones above a C, negative ones included.
    constexpr explicit Tone(int semitones) noexcept : _value((semitones % 12 + 12) % 12) { }

    /// The key of a spelling; an invalid one raises.
    explicit Tone(const PitchClass &pitchClass);
    Tone(NoteName name, NoteAccidental accidental)
    {
        if (!name.isValid() || !accidental.isValid())
            raiseInvalidSpelling();
        _value = spelling::tones[static_cast<std::size_t>(name.value()) * spelling::accidentalCount
                                 + static_cast<std::size_t>(accidental.value())];
    }

    /// 0 to 11.
    constexpr int value() const noexcept { return _value; }
    constexpr operator int() const noexcept { return _value; }

    /// MIDI number in an octave; middle C, 60, begins octave 5.
    constexpr int pitch(int octave) const noexcept { return _value + 12 * octave; }

    /// The spelling without double accidentals; black keys as sharps or as flats.
    NoteName noteName(bool preferSharp) const noexcept
    {
        return static_cast<NoteName::Value>(spelled(preferSharp) / spelling::accidentalCount);
    }
    NoteAccidental accidental(bool preferSharp) const noexcept
    {
        return static_cast<NoteAccidental::Value>(spelled(preferSharp) % spelling::accidentalCount);
    }
    QString toString(bool preferSharp) const;

    /// Semitones up and down, round the twelve.
    constexpr Tone operator+(unsigned semitones) const noexcept
    {
        return Tone(_value + static_cast<int>(semitones % 12));
    }
    constexpr Tone operator-(unsigned semitones) const noexcept
    {
        return Tone(_value - static_cast<int>(semitones % 12));
    }
    constexpr Tone operator+(int semitones) const noexcept { return Tone(_value + semitones % 12); }
    constexpr Tone operator-(int semitones) const noexcept { return Tone(_value - semitones % 12); }
    constexpr Tone &operator++() noexcept { return *this = *this + 1; }
    constexpr Tone &operator--() noexcept { return *this = *this - 1; }
    constexpr Tone operator++(int) noexcept
    {
        const Tone before = *this;
        ++*this;
        return before;
    }
    constexpr Tone operator--(int) noexcept
    {
        const Tone before = *this;
        --*this;
        return before;
    }

    /// The key a plain (perfect or major) degree higher; a number that is no degree raises.
    Tone operator+(IntervalName name) const;

    /// The key that a degree of a quality leads to. A pair that is no interval, such as a major
    /// fifth, raises.
    Tone to(IntervalName name, IntervalAlteration alteration) const;

    /// The usual interval up to another key; the tritone is the fourth or fifth of the letters
    /// that both have when black keys are sharps (F to B a fourth, B to F a fifth).
    IntervalName interval(Tone other) const noexcept;
    IntervalAlteration intervalAlteration(Tone other) const noexcept;

    constexpr bool equals(Tone other) const noexcept { return _value == other._value; }

    /// One byte, 0 to 11; the form of every version. False when the file fails; another byte
    /// raises. A value that is not read stays as it was.
    bool readFromStream(filesystem::FileHandle &file, int version);
    bool writeToStream(filesystem::FileHandle &file, int version) const;

    friend constexpr bool operator==(Tone left, Tone right) noexcept { return left.equals(right); }
    friend constexpr bool operator!=(Tone left, Tone right) noexcept { return !left.equals(right); }
    friend constexpr bool operator<(Tone left, Tone right) noexcept
    {
        return left._value < right._value;
    }
    friend constexpr bool operator>(Tone left, Tone right) noexcept { return right < left; }
    friend constexpr bool operator<=(Tone left, Tone right) noexcept { return !(right < left); }
    friend constexpr bool operator>=(Tone left, Tone right) noexcept { return !(left < right); }

private:
    int spelled(bool preferSharp) const noexcept
    {
        return (preferSharp ? spelling::withSharps
                            : spelling::withFlats)[static_cast<std::size_t>(_value)];
    }
    [[noreturn]] static void raiseInvalidSpelling();

    int _value = 0;
};

/// The number 0 to 11; reading any other sets the stream's fail bit.
ZARNCORE_EXPORT std::ostream &operator<<(std::ostream &stream, Tone tone);
ZARNCORE_EXPORT std::istream &operator>>(std::istream &stream, Tone &tone);

} // namespace zarn
