// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>

#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace zarn::io::native {

/// How a value stands in the document. Each codec has
///     static void write(DocumentWriter &writer, const T &value);
///     static T read(DocumentReader &reader, const Json &json);
/// and reading refuses whatever writing could not have made.
template <typename T, typename = void>
struct Codec;

template <>
struct Codec<bool> {
    static void write(DocumentWriter &writer, bool value) { writer.Bool(value); }
    static bool read(DocumentReader &reader, const Json &json)
    {
        if (!json.isBool())
            reader.refuseKind("true or false", json);
        return json.boolean();
    }
};

/// Whole numbers between two bounds, both included.
template <typename T, std::int64_t Lowest, std::int64_t Highest>
struct Within {
    static void write(DocumentWriter &writer, T value)
    {
        writer.Int64(static_cast<std::int64_t>(value));
    }
    static T read(DocumentReader &reader, const Json &json)
    {
        if (!json.isWhole() || json.whole() < Lowest || json.whole() > Highest)
            reader.refuseKind("a whole number from " + std::to_string(Lowest) + " to "
                                  + std::to_string(Highest),
                              json);
        return static_cast<T>(json.whole());
    }
};

template <typename T>
struct Codec<T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>>>
    : Within<T, static_cast<std::int64_t>(std::numeric_limits<T>::min()),
             static_cast<std::int64_t>(std::numeric_limits<T>::max())> {
    static_assert(sizeof(T) <= 4 || std::is_signed_v<T>, "bounds are signed");
};

template <typename T>
struct Codec<T, std::enable_if_t<std::is_floating_point_v<T>>> {
    static void write(DocumentWriter &writer, T value) { writer.real(value); }
    static T read(DocumentReader &reader, const Json &json)
    {
        if (!json.isNumber())
            reader.refuseKind("a number", json);
        // The shortest text of the largest float lies above it, by less than half a step.
        constexpr double largest = static_cast<double>(std::numeric_limits<T>::max());
        const double number = json.number();
        if (std::abs(number) > largest * (1.0 + std::numeric_limits<T>::epsilon() / 4.0))
            reader.refuse("the number is too large");
        return static_cast<T>(std::clamp(number, -largest, largest));
    }
};

template <>
struct Codec<std::string> {
    static void write(DocumentWriter &writer, const std::string &value) { writer.text(value); }
    static std::string read(DocumentReader &reader, const Json &json)
    {
        if (!json.isText())
            reader.refuseKind("text", json);
        return std::string(json.text());
    }
};

template <>
struct Codec<QString> {
    static void write(DocumentWriter &writer, const QString &value)
    {
        writer.text(value.toStdString());
    }
    static QString read(DocumentReader &reader, const Json &json)
    {
        return QString::fromStdString(Codec<std::string>::read(reader, json));
    }
};

/// Arrays of values; `Item` is the codec of an element.
template <typename T, typename Item = Codec<T>>
struct ArrayOf {
    static void write(DocumentWriter &writer, const std::vector<T> &values)
    {
        writer.StartArray();
        for (const auto &value : values)
            Item::write(writer, value);
        writer.EndArray();
    }
    static std::vector<T> read(DocumentReader &reader, const Json &json)
    {
        reader.expectArray(json);
        std::vector<T> values;
        values.reserve(json.size());
        for (const auto &element : json.elements()) {
            const DocumentReader::Step step(reader, static_cast<std::uint32_t>(values.size()));
            values.push_back(Item::read(reader, element));
        }
        return values;
    }
};

template <typename T>
struct Codec<std::vector<T>> : ArrayOf<T> {
};

} // namespace zarn::io::native
