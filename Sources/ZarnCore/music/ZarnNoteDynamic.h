// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

namespace zarn {

/// A dynamic level on a scale of sixteen, or none.
class ZARNCORE_EXPORT NoteDynamic {
public:
    enum class Value : std::uint8_t {
        None,
        PPPPPPP,
        PPPPPP,
        PPPPP,
        PPPP,
        PPP,
        PP,
        P,
        MP,
        MF,
        F,
        FF,
        FFF,
        FFFF,
        FFFFF,
        FFFFFF,
        FFFFFFF
    };

    /// None.
    constexpr NoteDynamic() noexcept = default;

    /// Implicit: the enumerator is the dynamic.
    constexpr NoteDynamic(Value value) noexcept : _value(value) { }

    constexpr Value value() const noexcept { return _value; }
    constexpr void setValue(Value value) noexcept { _value = value; }

    /// "None" and "PPPP" to "FFFF"; the levels outside have no text and raise.
    std::string toString() const;

    /// The number of a level of the whole scale, read in any case; -1 for another text.
    static int stringToInt(const std::string &text);

    /// The word of each level of the whole scale, as `stringToInt` reads it; "NONE" for none.
    static std::string textOf(Value value);

    friend constexpr bool operator==(NoteDynamic left, NoteDynamic right) noexcept
    {
        return left._value == right._value;
    }
    friend constexpr bool operator!=(NoteDynamic left, NoteDynamic right) noexcept
    {
        return !(left == right);
    }

private:
    Value _value = Value::None;
};

} // namespace zarn
