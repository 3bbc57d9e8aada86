// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/native/Codec.h>

#include <algorithm>

namespace zarn::io::native {

/// Enumerators by their published texts, found through the printer and the parser of the
/// enumeration. A value stands by its text when the text leads back to it; those of `Untexted`
/// stand by their numbers. There are no others: such a value does not fit.
template <auto ToText, auto FromText, std::int64_t Highest, auto... Untexted>
struct EnumCodec {
    using E = std::decay_t<std::invoke_result_t<decltype(FromText), const std::string &>>;

    static void write(DocumentWriter &writer, E value)
    {
        const auto number = static_cast<std::int64_t>(value);
        if (number >= 0 && number <= Highest && !texts()[static_cast<std::size_t>(number)].empty())
            writer.text(texts()[static_cast<std::size_t>(number)]);
        else if (isUntexted(number))
            writer.Int64(number);
        else
            throw Misfit{{}, std::to_string(number) + " is not " + choices()};
    }

    static E read(DocumentReader &reader, const Json &json)
    {
        if (json.isText() && json.text() != "") {
            const auto &known = texts();
            const auto found = std::find(known.begin(), known.end(), json.text());
            if (found != known.end())
                return static_cast<E>(found - known.begin());
        }
        if (json.isWhole() && isUntexted(json.whole()))
            return static_cast<E>(json.whole());
        reader.refuseKind(choices(), json);
    }

private:
    static bool isUntexted([[maybe_unused]] std::int64_t number) noexcept
    {
        return ((number == static_cast<std::int64_t>(Untexted)) || ...);
    }

    /// The text of each value from 0, empty where it has none that leads back.
    static const std::vector<std::string> &texts()
    {
        static const std::vector<std::string> table = [] {
            std::vector<std::string> result;
            for (std::int64_t number = 0; number <= Highest; ++number)
                result.push_back(textFor(static_cast<E>(number)));
            return result;
        }();
        return table;
    }

    static std::string textFor(E value)
    {
        try {
            const std::string text(ToText(value));
            return FromText(text) == value ? text : std::string();
        } catch (const CoreException &) { // a value between the others
            return {};
        }
    }

    static std::string choices()
    {
        std::string list;
        for (const std::string &text : texts())
            if (!text.empty())
                list += (list.empty() ? "one of " : ", ") + text;
        return list;
    }
};

} // namespace zarn::io::native
