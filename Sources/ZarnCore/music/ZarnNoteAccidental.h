// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>

#include <QString>

#include <cstdint>

namespace zarn {

/// The alteration of a note's letter, from a double flat to a double sharp.
class ZARNCORE_EXPORT NoteAccidental {
public:
    enum class Value : std::uint8_t { DoubleFlat, Flat, Natural, Sharp, DoubleSharp };

    /// Natural.
    constexpr NoteAccidental() noexcept = default;

    /// Implicit: the enumerator is the accidental.
    constexpr NoteAccidental(Value value) noexcept : _value(value) { }

    /// From the engraved sign; no sign is Natural. A number outside the enumeration raises.
    explicit NoteAccidental(Accidental accidental);

    constexpr Value value() const noexcept { return _value; }
    constexpr bool isValid() const noexcept { return _value <= Value::DoubleSharp; }

    /// Semitones, -2 to 2 while the accidental is valid.
    constexpr int alteration() const noexcept { return static_cast<int>(_value) - 2; }

    /// The engraved sign; an invalid accidental raises, as in the texts.
    Accidental accidentalValue() const;

    /// "DoubleFlat", "Flat", "Natural", "Sharp", "DoubleSharp"; short "bb", "b", "", "#", "##".
    QString toString(bool shortForm) const;

    /// For display: "bb", the flat sign, nothing for Natural, the sharp sign, "##".
    QString symbol() const;

    constexpr void setValue(Value value) noexcept { _value = value; }

    /// Reads a long text in any case or a short one as it is printed; any other text raises, and
    /// is no valid string. The empty text is none.
    static Value stringToValue(const QString &text);
    static bool isAValidString(const QString &text);
    static NoteAccidental fromString(const QString &text);

    friend constexpr bool operator==(NoteAccidental left, NoteAccidental right) noexcept
    {
        return left._value == right._value;
    }
    friend constexpr bool operator!=(NoteAccidental left, NoteAccidental right) noexcept
    {
        return !(left == right);
    }

private:
    Value _value = Value::Natural;
};

} // namespace zarn
