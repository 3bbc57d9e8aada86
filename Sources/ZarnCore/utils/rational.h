// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>

#include <QString>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace utils {

/// An exact fraction of two 64-bit terms, always reduced, with the sign in the numerator. Lengths
/// and positions inside a bar are rationals counted in quarter notes.
///
/// Nothing overflows silently: a result whose reduced terms do not fit raises `CoreException`, and
/// so does a zero denominator. Comparisons are exact for all values.
class rational {
public:
    constexpr rational() noexcept = default;

    /// A whole number; implicit, so that `length * 2` and `offset == 0` read as they should.
    constexpr rational(std::int64_t whole) noexcept : _numerator(whole) { }

    /// The fraction, reduced; a zero denominator raises.
    constexpr rational(std::int64_t numerator, std::int64_t denominator);

    constexpr std::int64_t numerator() const noexcept { return _numerator; }

    /// Always positive.
    constexpr std::int64_t denominator() const noexcept { return _denominator; }

    constexpr bool isZero() const noexcept { return _numerator == 0; }
    constexpr bool isInteger() const noexcept { return _denominator == 1; }

    /// -1, 0 or 1.
    constexpr int sign() const noexcept { return (_numerator > 0) - (_numerator < 0); }

    /// The nearest double; for drawing and playback, never for positions.
    constexpr double toDouble() const noexcept
    {
        return static_cast<double>(_numerator) / static_cast<double>(_denominator);
    }

    /// The largest whole number that is not above the value.
    constexpr std::int64_t floor() const noexcept;

    /// The smallest whole number that is not below the value.
    constexpr std::int64_t ceil() const noexcept;

    /// The nearest whole number; halves go up.
    constexpr std::int64_t round() const noexcept;

    /// Turned over; zero raises.
    constexpr rational reciprocal() const;

    /// "3/2", "-1/4", "3".
    std::string toString() const;
    QString toQString() const { return QString::fromStdString(toString()); }

    /// Reads what `toString` writes, in reduced form or not; nothing for any other text, a zero
    /// denominator or terms past 64 bits.
    static std::optional<rational> fromString(std::string_view text) noexcept;

    constexpr rational operator+() const noexcept { return *this; }
    constexpr rational operator-() const;

    constexpr rational &operator+=(const rational &other) { return *this = *this + other; }
    constexpr rational &operator-=(const rational &other) { return *this = *this - other; }
    constexpr rational &operator*=(const rational &other) { return *this = *this * other; }
    constexpr rational &operator/=(const rational &other) { return *this = *this / other; }

    friend constexpr rational operator+(const rational &left, const rational &right);
    friend constexpr rational operator-(const rational &left, const rational &right);
    friend constexpr rational operator*(const rational &left, const rational &right);

    /// Dividing by zero raises.
    friend constexpr rational operator/(const rational &left, const rational &right);

    friend constexpr bool operator==(const rational &left, const rational &right) noexcept
    {
        return left._numerator == right._numerator && left._denominator == right._denominator;
    }
    friend constexpr bool operator!=(const rational &left, const rational &right) noexcept
    {
        return !(left == right);
    }
    friend constexpr bool operator<(const rational &left, const rational &right) noexcept
    {
        return Wide(left._numerator) * right._denominator
            < Wide(right._numerator) * left._denominator;
    }
    friend constexpr bool operator>(const rational &left, const rational &right) noexcept
    {
        return right < left;
    }
    friend constexpr bool operator<=(const rational &left, const rational &right) noexcept
    {
        return !(right < left);
    }
    friend constexpr bool operator>=(const rational &left, const rational &right) noexcept
    {
        return !(left < right);
    }

private:
    __extension__ typedef __int128 Wide;
    __extension__ typedef unsigned __int128 UnsignedWide;
    struct Reduced { };

    constexpr rational(Reduced, std::int64_t numerator, std::int64_t denominator) noexcept
        : _numerator(numerator), _denominator(denominator)
    {
    }

    static constexpr int zeros(std::uint64_t value) noexcept { return __builtin_ctzll(value); }
    static constexpr std::uint64_t magnitude(std::int64_t value) noexcept
    {
        return value < 0 ? 0 - static_cast<std::uint64_t>(value)
                         : static_cast<std::uint64_t>(value);
    }
    static constexpr bool isSmall(const rational &left, const rational &right) noexcept;
    static constexpr std::uint64_t oddGcd(std::uint64_t value, std::uint64_t odd) noexcept;
    static constexpr rational reduceSmall(std::int64_t numerator,
                                          std::int64_t denominator) noexcept;
    static constexpr rational reduceWide(Wide numerator, Wide denominator);
    static constexpr rational addSmall(std::int64_t left, std::int64_t leftDenominator,
                                       std::int64_t right, std::int64_t rightDenominator) noexcept;

    [[noreturn, gnu::cold, gnu::noinline]] static void raiseOverflow()
    {
        ZARN_RAISE_IN("utils::rational", "The fraction does not fit in 64-bit terms.");
    }
    [[noreturn, gnu::cold, gnu::noinline]] static void raiseZeroDenominator()
    {
        ZARN_RAISE_IN("utils::rational", "Assertion failed: denominator != 0");
    }

    std::int64_t _numerator = 0;
    std::int64_t _denominator = 1;
};

/// Whether the products of the terms, and a sum of two of them, stay inside 64 bits.
constexpr bool rational::isSmall(const rational &left, const rational &right) noexcept
{
    constexpr std::uint64_t limit = std::uint64_t(1) << 30;
    const auto numerators = (static_cast<std::uint64_t>(left._numerator) + limit)
        | (static_cast<std::uint64_t>(right._numerator) + limit);
    const auto denominators = static_cast<std::uint64_t>(left._denominator)
        | static_cast<std::uint64_t>(right._denominator);
    return ((numerators | denominators) >> 31) == 0;
}

/// Greatest common divisor of any non-zero value and an odd one.
constexpr std::uint64_t rational::oddGcd(std::uint64_t value, std::uint64_t odd) noexcept
{
    std::uint64_t other = odd;
    do {
        value >>= zeros(value);
        const std::uint64_t smaller = value < other ? value : other;
        value = value < other ? other - value : value - other;
        other = smaller;
    } while (value != 0);
    return other;
}

/// Reduces terms far from the limits; the denominator is positive.
constexpr rational rational::reduceSmall(std::int64_t numerator, std::int64_t denominator) noexcept
{
    if (numerator == 0)
        return {};
    const int denominatorZeros = zeros(static_cast<std::uint64_t>(denominator));
    const int numeratorZeros = zeros(static_cast<std::uint64_t>(numerator));
    const int shift = numeratorZeros < denominatorZeros ? numeratorZeros : denominatorZeros;
    numerator >>= shift;
    denominator >>= shift;
    const auto odd = static_cast<std::uint64_t>(denominator) >> (denominatorZeros - shift);
    if (odd != 1) {
        const auto divisor = static_cast<std::int64_t>(oddGcd(magnitude(numerator), odd));
        if (divisor != 1) {
            numerator /= divisor;
            denominator /= divisor;
        }
    }
    return {Reduced(), numerator, denominator};
}

/// Reduces any terms and raises when they still do not fit; the denominator is positive.
constexpr rational rational::reduceWide(Wide numerator, Wide denominator)
{
    UnsignedWide left = numerator < 0 ? 0 - UnsignedWide(numerator) : UnsignedWide(numerator);
    UnsignedWide right = UnsignedWide(denominator);
    while (right != 0) {
        const UnsignedWide rest = left % right;
        left = right;
        right = rest;
    }
    numerator /= Wide(left);
    denominator /= Wide(left);
    if (numerator > std::numeric_limits<std::int64_t>::max()
        || numerator < std::numeric_limits<std::int64_t>::min()
        || denominator > std::numeric_limits<std::int64_t>::max())
        raiseOverflow();
    return {Reduced(), static_cast<std::int64_t>(numerator),
            static_cast<std::int64_t>(denominator)};
}

constexpr rational::rational(std::int64_t numerator, std::int64_t denominator)
{
    if (denominator == 0)
        raiseZeroDenominator();
    if (denominator > 0)
        *this = reduceSmall(numerator, denominator);
    else
        *this = reduceWide(-Wide(numerator), -Wide(denominator));
}

/// Adds over the common denominator 2^k * odd. Only odd parts that are both above 1 can leave a
/// common odd factor: a plain length and a tuplet need no greatest common divisor at all.
constexpr rational rational::addSmall(std::int64_t left, std::int64_t leftDenominator,
                                      std::int64_t right, std::int64_t rightDenominator) noexcept
{
    const int leftZeros = zeros(static_cast<std::uint64_t>(leftDenominator));
    const int rightZeros = zeros(static_cast<std::uint64_t>(rightDenominator));
    const std::int64_t leftOdd = leftDenominator >> leftZeros;
    const std::int64_t rightOdd = rightDenominator >> rightZeros;
    const bool sameOdd = leftOdd == rightOdd;
    const int most = leftZeros > rightZeros ? leftZeros : rightZeros;
    std::int64_t sum = left * ((sameOdd ? 1 : rightOdd) << (most - leftZeros))
        + right * ((sameOdd ? 1 : leftOdd) << (most - rightZeros));
    if (sum == 0)
        return {};
    const std::int64_t odd = sameOdd ? leftOdd : leftOdd * rightOdd;
    const int sumZeros = zeros(static_cast<std::uint64_t>(sum));
    const int shift = sumZeros < most ? sumZeros : most;
    sum >>= shift;
    std::int64_t denominator = odd << (most - shift);
    if (leftOdd != 1 && rightOdd != 1) {
        const auto divisor =
            static_cast<std::int64_t>(oddGcd(magnitude(sum), static_cast<std::uint64_t>(odd)));
        if (divisor != 1) {
            sum /= divisor;
            denominator /= divisor;
        }
    }
    return {Reduced(), sum, denominator};
}

constexpr rational operator+(const rational &left, const rational &right)
{
    if (rational::isSmall(left, right))
        return rational::addSmall(left._numerator, left._denominator, right._numerator,
                                  right._denominator);
    return rational::reduceWide(rational::Wide(left._numerator) * right._denominator
                                    + rational::Wide(right._numerator) * left._denominator,
                                rational::Wide(left._denominator) * right._denominator);
}

constexpr rational operator-(const rational &left, const rational &right)
{
    if (rational::isSmall(left, right))
        return rational::addSmall(left._numerator, left._denominator, -right._numerator,
                                  right._denominator);
    return rational::reduceWide(rational::Wide(left._numerator) * right._denominator
                                    - rational::Wide(right._numerator) * left._denominator,
                                rational::Wide(left._denominator) * right._denominator);
}

constexpr rational operator*(const rational &left, const rational &right)
{
    if (rational::isSmall(left, right))
        return rational::reduceSmall(left._numerator * right._numerator,
                                     left._denominator * right._denominator);
    return rational::reduceWide(rational::Wide(left._numerator) * right._numerator,
                                rational::Wide(left._denominator) * right._denominator);
}

constexpr rational operator/(const rational &left, const rational &right)
{
    if (right._numerator == 0)
        rational::raiseZeroDenominator();
    const rational::Wide sign = right._numerator < 0 ? -1 : 1;
    if (rational::isSmall(left, right))
        return rational::reduceSmall(
            left._numerator * right._denominator * (right._numerator < 0 ? -1 : 1),
            left._denominator * static_cast<std::int64_t>(rational::magnitude(right._numerator)));
    return rational::reduceWide(sign * left._numerator * right._denominator,
                                sign * left._denominator * right._numerator);
}

constexpr rational rational::operator-() const
{
    if (_numerator == std::numeric_limits<std::int64_t>::min())
        raiseOverflow();
    return {Reduced(), -_numerator, _denominator};
}

constexpr rational rational::reciprocal() const
{
    return rational(1) / *this;
}

constexpr std::int64_t rational::floor() const noexcept
{
    return _numerator / _denominator - (_numerator % _denominator < 0);
}

constexpr std::int64_t rational::ceil() const noexcept
{
    return _numerator / _denominator + (_numerator % _denominator > 0);
}

constexpr std::int64_t rational::round() const noexcept
{
    const std::int64_t below = floor();
    const Wide rest = Wide(_numerator) - Wide(below) * _denominator;
    return below + (2 * rest >= _denominator);
}

/// Without its sign.
constexpr rational abs(const rational &value)
{
    return value.numerator() < 0 ? -value : value;
}

/// How many whole steps fit below a value: the beat that a position lies in. The step is not zero.
constexpr std::int64_t floorDivide(const rational &value, const rational &step)
{
    return (value / step).floor();
}

/// What `floorDivide` leaves: the place inside the beat, from 0 to below the step.
constexpr rational modulo(const rational &value, const rational &step)
{
    return value - step * rational(floorDivide(value, step));
}

inline std::string rational::toString() const
{
    std::string text = std::to_string(_numerator);
    if (_denominator != 1)
        text.append(1, '/').append(std::to_string(_denominator));
    return text;
}

inline std::optional<rational> rational::fromString(std::string_view text) noexcept
{
    const char *const end = text.data() + text.size();
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
    auto read = std::from_chars(text.data(), end, numerator);
    if (read.ec != std::errc())
        return std::nullopt;
    if (read.ptr != end) {
        const char *const digits = read.ptr + 1;
        if (*read.ptr != '/' || digits == end || *digits == '-')
            return std::nullopt;
        read = std::from_chars(digits, end, denominator);
        if (read.ec != std::errc() || read.ptr != end || denominator == 0)
            return std::nullopt;
    }
    return rational(numerator, denominator);
}

template <typename Traits>
std::basic_ostream<char, Traits> &operator<<(std::basic_ostream<char, Traits> &stream,
                                             const rational &value)
{
    return stream << value.toString();
}

inline std::size_t hashValue(const rational &value) noexcept
{
    const auto mixed = static_cast<std::uint64_t>(value.numerator()) * 0x9e3779b97f4a7c15u
        ^ static_cast<std::uint64_t>(value.denominator()) * 0xc2b2ae3d27d4eb4fu;
    return static_cast<std::size_t>(mixed ^ (mixed >> 29));
}

inline uint qHash(const rational &value, uint seed = 0) noexcept
{
    return static_cast<uint>(hashValue(value)) ^ seed;
}

} // namespace utils

template <>
struct std::hash<utils::rational> {
    std::size_t operator()(const utils::rational &value) const noexcept
    {
        return utils::hashValue(value);
    }
};
