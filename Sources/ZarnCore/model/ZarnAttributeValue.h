// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/attributes/ZarnAccentFlags.h>
#include <ZarnCore/model/attributes/ZarnBend.h>
#include <ZarnCore/model/attributes/ZarnTrill.h>

#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace zarn {

/// The value of any attribute of the score. Enumerators and dynamics are held as their
/// numbers, widths as `double`.
class ZARNCORE_EXPORT AttributeValue {
public:
    using Held = std::variant<bool, int, double, std::string, RhythmValue, ChordMark, Strum,
                              WhammyBar, Barre, Syllables, SlurEnds, AccentFlags, Bend, Trill,
                              Harmonic, TimeSignature, KeySignature, std::optional<utils::rational>,
                              Section, BeamGroups, FermataMarks, std::vector<ClefChange>>;

    /// False.
    AttributeValue() = default;

    AttributeValue(bool value) : _held(value) { }
    AttributeValue(int value) : _held(value) { }
    AttributeValue(unsigned value) : _held(static_cast<int>(value)) { }
    AttributeValue(double value) : _held(value) { }
    AttributeValue(float value) : _held(static_cast<double>(value)) { }
    AttributeValue(const char *value) : _held(std::string(value)) { }
    AttributeValue(NoteDynamic value) : _held(static_cast<int>(value.value())) { }
    template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0>
    AttributeValue(E value) : _held(static_cast<int>(value))
    {
    }
    template <
        class T,
        std::enable_if_t<(std::is_class_v<T> && std::is_constructible_v<Held, const T &>), int> = 0>
    AttributeValue(const T &value) : _held(value)
    {
    }

    const Held &held() const noexcept { return _held; }

    /// Number of what is held among the alternatives of `Held`.
    std::size_t alternative() const noexcept { return _held.index(); }

    /// What is held, as an attribute of this type takes it. Raises when it is of another kind.
    template <class T>
    T to() const
    {
        if constexpr (std::is_same_v<T, bool>)
            return get<bool>();
        else if constexpr (std::is_same_v<T, NoteDynamic>)
            return static_cast<NoteDynamic::Value>(get<int>());
        else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>)
            return static_cast<T>(get<int>());
        else if constexpr (std::is_floating_point_v<T>)
            return static_cast<T>(get<double>());
        else
            return get<T>();
    }

    /// Whether its parts fit together, as each of the value types says.
    bool isValid() const noexcept;

    friend ZARNCORE_EXPORT bool operator==(const AttributeValue &left, const AttributeValue &right);
    friend bool operator!=(const AttributeValue &left, const AttributeValue &right)
    {
        return !(left == right);
    }

private:
    template <class T>
    const T &get() const
    {
        const T *const value = std::get_if<T>(&_held);
        if (value == nullptr)
            raiseOtherKind();
        return *value;
    }
    [[noreturn]] static void raiseOtherKind();

    Held _held;
};

} // namespace zarn
