// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/XmlNumber.h>

#include <charconv>
#include <string_view>

namespace zarn::io {

namespace {

constexpr std::int64_t largest = 1'000'000'000;
constexpr std::size_t mostPlaces = 6;

std::string_view trimmed(const char *text) noexcept
{
    constexpr std::string_view spaces = " \t\r\n";
    std::string_view word(text);
    word.remove_prefix(std::min(word.find_first_not_of(spaces), word.size()));
    return word.substr(0, word.find_last_not_of(spaces) + 1);
}

/// Digits alone, at least one.
std::optional<std::int64_t> parseDigits(std::string_view word) noexcept
{
    std::int64_t value = 0;
    const auto *end = word.data() + word.size();
    if (word.empty() || word[0] < '0' || word[0] > '9')
        return std::nullopt;
    const auto read = std::from_chars(word.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end || value > largest)
        return std::nullopt;
    return value;
}

/// Takes a sign off the front; -1 or 1.
int takeSign(std::string_view &word) noexcept
{
    if (word.empty() || (word[0] != '-' && word[0] != '+'))
        return 1;
    const int sign = word[0] == '-' ? -1 : 1;
    word.remove_prefix(1);
    return sign;
}

/// A plain number of up to nine digits and nothing else, which most texts are.
std::optional<int> parsePlain(const char *text) noexcept
{
    int value = 0;
    int digits = 0;
    for (; text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        if (digits == 9)
            return std::nullopt;
        value = 10 * value + (text[digits] - '0');
    }
    return digits > 0 && text[digits] == '\0' ? std::optional<int>(value) : std::nullopt;
}

} // namespace

std::optional<int> parseInteger(const char *text) noexcept
{
    if (const auto plain = parsePlain(text))
        return plain;
    auto word = trimmed(text);
    const int sign = takeSign(word);
    const auto value = parseDigits(word);
    return value ? std::optional<int>(sign * static_cast<int>(*value)) : std::nullopt;
}

std::optional<utils::rational> parseDecimal(const char *text) noexcept
{
    if (const auto plain = parsePlain(text))
        return utils::rational(*plain);
    auto word = trimmed(text);
    const int sign = takeSign(word);
    const auto point = word.find('.');
    const auto whole =
        point == 0 ? std::optional<std::int64_t>(0) : parseDigits(word.substr(0, point));
    if (!whole)
        return std::nullopt;
    if (point == word.npos)
        return utils::rational(sign * *whole);
    auto places = word.substr(point + 1);
    places = places.substr(0, places.find_last_not_of('0') + 1);
    const auto part = places.empty() ? std::optional<std::int64_t>(0) : parseDigits(places);
    if (!part || places.size() > mostPlaces || word.size() == 1)
        return std::nullopt;
    std::int64_t unit = 1;
    for (std::size_t i = 0; i < places.size(); ++i)
        unit *= 10;
    return utils::rational(sign * (*whole * unit + *part), unit);
}

} // namespace zarn::io
