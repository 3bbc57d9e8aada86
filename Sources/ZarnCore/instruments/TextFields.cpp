// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/TextFields.h>

#include <array>
#include <charconv>
#include <cmath>

namespace zarn::detail {

namespace {

constexpr char escape = '\\';

void appendEscaped(std::string &text, std::string_view field, char separator)
{
    for (const char letter : field) {
        if (letter == separator || letter == escape)
            text += escape;
        text += letter;
    }
}

template <typename Number>
std::optional<Number> parsedNumber(std::string_view text)
{
    Number number = {};
    const char *end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        return std::nullopt;
    return number;
}

} // namespace

std::string joinedFields(const std::vector<std::string> &fields, char separator)
{
    std::string text = joinedList(fields, separator);
    if (!text.empty())
        text.pop_back();
    return text;
}

std::vector<std::string> splitFields(std::string_view text, char separator)
{
    std::vector<std::string> fields(1);
    bool isEscaped = false;
    for (const char letter : text) {
        if (!isEscaped && letter == escape) {
            isEscaped = true;
            continue;
        }
        if (!isEscaped && letter == separator)
            fields.emplace_back();
        else
            fields.back() += letter;
        isEscaped = false;
    }
    return fields;
}

std::string joinedList(const std::vector<std::string> &items, char separator)
{
    std::string text;
    for (const std::string &item : items) {
        appendEscaped(text, item, separator);
        text += separator;
    }
    return text;
}

std::optional<std::vector<std::string>> splitList(std::string_view text, char separator)
{
    auto items = splitFields(text, separator);
    if (!items.back().empty())
        return std::nullopt;
    items.pop_back();
    return items;
}

std::string textOfFloat(float number)
{
    std::array<char, 32> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return std::string(buffer.data(), written.ptr);
}

std::optional<std::int32_t> numberFromText(std::string_view text)
{
    return parsedNumber<std::int32_t>(text);
}

std::optional<float> floatFromText(std::string_view text)
{
    const auto number = parsedNumber<float>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

} // namespace zarn::detail
