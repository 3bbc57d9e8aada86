// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonNumber.h>

#include <QByteArray>

#include <charconv>

namespace utils {

namespace {

template <typename Number>
bool convert(std::string_view text, Number &number) noexcept
{
    const char *const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end;
}

} // namespace

std::optional<std::int64_t> jsonWhole(std::string_view number) noexcept
{
    std::int64_t whole = 0;
    if (!convert(number, whole))
        return std::nullopt;
    return whole;
}

double jsonReal(std::string_view number) noexcept
{
    double real = 0;
    if (convert(number, real))
        return real;
    // Out of range; Qt says in which direction, by zero or infinity.
    return QByteArray::fromRawData(number.data(), static_cast<int>(number.size())).toDouble();
}

} // namespace utils
