// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>
#include <ZarnCore/io/native/Misfit.h>

#include <QString>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
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

/// Whole numbers between two bounds, both included. A number has no codec without bounds: each
/// field says what it may hold. What writing could not read back is refused before it is written.
template <typename T, std::int64_t Lowest, std::int64_t Highest>
struct Within {
    static void write(DocumentWriter &writer, T value)
    {
        const auto number = static_cast<std::int64_t>(value);
        if (number < Lowest || number > Highest)
            throw Misfit{{}, std::to_string(number) + " is not " + expected()};
        writer.Int64(number);
    }
    static T read(DocumentReader &reader, const Json &json)
    {
        if (!json.isWhole() || json.whole() < Lowest || json.whole() > Highest)
            reader.refuseKind(expected(), json);
        return static_cast<T>(json.whole());
    }

private:
    static std::string expected()
    {
        return "a whole number from " + std::to_string(Lowest) + " to " + std::to_string(Highest);
    }
};

/// The same for numbers with fractions; `Range` has a `lowest` and a `highest` as double.
template <typename T, typename Range>
struct Between {
    static void write(DocumentWriter &writer, T value)
    {
        if (!isInside(static_cast<double>(value)))
            throw Misfit{{}, numberText(static_cast<double>(value)) + " is not " + expected()};
        writer.real(value);
    }
    static T read(DocumentReader &reader, const Json &json)
    {
        if (!json.isNumber())
            reader.refuseKind("a number", json);
        const double number = json.number();
        if (!isInside(number))
            reader.refuseKind(expected(), json);
        constexpr double largest = static_cast<double>(std::numeric_limits<T>::max());
        return static_cast<T>(std::clamp(number, -largest, largest));
    }

private:
    static bool isInside(double number) noexcept
    {
        return number >= Range::lowest && number <= Range::highest;
    }
    static std::string expected()
    {
        return "a number from " + numberText(Range::lowest) + " to " + numberText(Range::highest);
    }
};

/// Any number that is finite in single precision.
struct AnyFloat {
    /// The shortest text of the largest float lies above it, by less than half a step.
    static constexpr double highest = static_cast<double>(std::numeric_limits<float>::max())
        * (1.0 + static_cast<double>(std::numeric_limits<float>::epsilon()) / 4.0);
    static constexpr double lowest = -highest;
};

/// Settings of knobs, gains that only attenuate.
struct Levels {
    static constexpr double lowest = 0;
    static constexpr double highest = 1;
};

/// From left to right.
struct Pans {
    static constexpr double lowest = -1;
    static constexpr double highest = 1;
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

/// Arrays of values; `Item` is the codec of an element. At most `MostItems` where the number is
/// bounded by what the array stands for.
template <typename T, typename Item = Codec<T>,
          std::uint32_t MostItems = std::numeric_limits<std::uint32_t>::max()>
struct ArrayOf {
    static void write(DocumentWriter &writer, const std::vector<T> &values)
    {
        if (values.size() > MostItems)
            throw Misfit{{}, tooMany(values.size())};
        writer.StartArray();
        std::size_t index = 0;
        for (const auto &value : values)
            atPlace([&] { return std::to_string(index); },
                    [&] {
                        Item::write(writer, value);
                        ++index;
                    });
        writer.EndArray();
    }
    static std::vector<T> read(DocumentReader &reader, const Json &json)
    {
        reader.expectArray(json);
        if (json.size() > MostItems)
            reader.refuse(tooMany(json.size()));
        std::vector<T> values;
        values.reserve(json.size());
        for (const auto &element : json.elements()) {
            const DocumentReader::Step step(reader, static_cast<std::uint32_t>(values.size()));
            values.push_back(Item::read(reader, element));
        }
        return values;
    }

private:
    static std::string tooMany(std::size_t count)
    {
        return "there are " + std::to_string(count) + " of at most " + std::to_string(MostItems);
    }
};

template <typename T>
struct Codec<std::vector<T>> : ArrayOf<T> {
};

} // namespace zarn::io::native
