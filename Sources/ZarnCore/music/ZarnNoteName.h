// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <cstdint>

namespace zarn {

/// One of the seven letters that name notes.
class ZARNCORE_EXPORT NoteName {
public:
    enum class Value : std::uint8_t { C, D, E, F, G, A, B, Invalid };

    /// The invalid name.
    constexpr NoteName() noexcept = default;

    /// Implicit: the enumerator is the name.
    constexpr NoteName(Value value) noexcept : _value(value) { }

    constexpr Value value() const noexcept { return _value; }
    constexpr bool isValid() const noexcept { return _value < Value::Invalid; }

    /// Semitones above C: 0, 2, 4, 5, 7, 9, 11; an invalid name raises.
    int naturalSemitone() const;

    /// "C" to "B", and "Invalid" for the invalid name; any other number raises.
    QString toString() const;

    /// For display; the invalid name raises too.
    QString symbol() const;

    constexpr void setValue(Value value) noexcept { _value = value; }

    /// The next and the last letter, from B on to C and back; the invalid name stays invalid.
    NoteName &operator++() noexcept;
    NoteName &operator--() noexcept;

    /// A letter in either case; any other text raises, and is no valid string.
    static Value stringToValue(const QString &text);
    static bool isAValidString(const QString &text);
    static NoteName fromString(const QString &text);

    friend constexpr bool operator==(NoteName left, NoteName right) noexcept
    {
        return left._value == right._value;
    }
    friend constexpr bool operator!=(NoteName left, NoteName right) noexcept
    {
        return !(left == right);
    }

private:
    Value _value = Value::Invalid;
};

} // namespace zarn
