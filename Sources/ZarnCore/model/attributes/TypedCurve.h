// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/EnumeratorWord.h>
#include <ZarnCore/model/attributes/ZarnPitchCurve.h>

#include <string>

namespace zarn {

/// Text of a structure of a type and a curve, which stands behind the type where there is one.
template <auto ToText, class T>
std::string typedCurveText(const T &value)
{
    return ToText(value.type) + (value.curve.isEmpty() ? "" : " " + value.curve.toString());
}

/// What the text says, when it is valid.
template <auto ToText, auto FromText, class T>
std::optional<T> typedCurveFromText(std::string_view text)
{
    utils::TextScanner scanner(text);
    T value;
    if (!takeEnumerator<ToText, FromText>(scanner, value.type))
        return std::nullopt;
    if (scanner.take(" ")) {
        auto curve = PitchCurve::take(scanner);
        if (!curve)
            return std::nullopt;
        value.curve = *std::move(curve);
    }
    return scanner.isAtEnd() && value.isValid() ? std::optional<T>(std::move(value)) : std::nullopt;
}

} // namespace zarn
