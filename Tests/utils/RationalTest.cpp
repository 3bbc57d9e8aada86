// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/rational.h>

#include <ZarnCore/ZarnException.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <numeric>
#include <random>
#include <unordered_set>

namespace {

using utils::rational;
using zarn::CoreException;
__extension__ typedef __int128 Wide;

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

static_assert(rational(6, -4) == rational(-3, 2));
static_assert(rational(1, 2) + rational(1, 3) == rational(5, 6));
static_assert(rational(3, 2).floor() == 1 && rational(-3, 2).floor() == -2);

/// The textbook result of an operation, or nothing when it has none in 64-bit terms.
std::optional<rational> expected(Wide numerator, Wide denominator)
{
    if (denominator == 0)
        return std::nullopt;
    Wide left = numerator < 0 ? -numerator : numerator;
    Wide right = denominator < 0 ? -denominator : denominator;
    while (right != 0) {
        const Wide rest = left % right;
        left = right;
        right = rest;
    }
    if (denominator < 0)
        left = -left;
    numerator /= left;
    denominator /= left;
    if (numerator > most || numerator < least || denominator > most)
        return std::nullopt;
    return rational(static_cast<std::int64_t>(numerator), static_cast<std::int64_t>(denominator));
}

template <typename Operation>
std::optional<rational> tried(Operation operation)
{
    try {
        return operation();
    } catch (const CoreException &) {
        return std::nullopt;
    }
}

void expectReduced(const std::optional<rational> &value)
{
    if (!value)
        return;
    EXPECT_GT(value->denominator(), 0);
    const Wide numerator = value->numerator();
    if (numerator != least) {
        EXPECT_EQ(std::gcd(value->numerator(), value->denominator()), 1);
    }
}

/// Terms of all sizes: bar lengths, limits of the fast paths, limits of 64 bits.
class Terms {
public:
    std::int64_t operator()()
    {
        constexpr std::array<std::int64_t, 14> edges = {
            0,         1,           -1,    2,         3,         64,
            most,      most - 1,    least, least + 1, 1LL << 30, (1LL << 31) - 1,
            1LL << 31, -(1LL << 30)};
        const auto kind = _random() % 8;
        if (kind == 0)
            return edges[_random() % edges.size()];
        if (kind < 5)
            return static_cast<std::int64_t>(_random() % 257) - 128;
        return static_cast<std::int64_t>(_random()) >> (_random() % 63);
    }

private:
    std::mt19937_64 _random{20240229};
};

TEST(Rational, arithmeticAgreesWithWideIntegersAndNeverOverflowsSilently)
{
    Terms term;
    int raised = 0;
    for (int i = 0; i < 200000; ++i) {
        const auto a = tried([&] { return rational(term(), term()); });
        const auto b = tried([&] { return rational(term(), term()); });
        if (!a || !b)
            continue;
        const Wide an = a->numerator();
        const Wide ad = a->denominator();
        const Wide bn = b->numerator();
        const Wide bd = b->denominator();
        const auto sum = tried([&] { return *a + *b; });
        const auto difference = tried([&] { return *a - *b; });
        const auto product = tried([&] { return *a * *b; });
        const auto quotient = tried([&] { return *a / *b; });
        ASSERT_EQ(sum, expected(an * bd + bn * ad, ad * bd)) << *a << " + " << *b;
        ASSERT_EQ(difference, expected(an * bd - bn * ad, ad * bd)) << *a << " - " << *b;
        ASSERT_EQ(product, expected(an * bn, ad * bd)) << *a << " * " << *b;
        ASSERT_EQ(quotient, expected(an * bd, ad * bn)) << *a << " / " << *b;
        ASSERT_EQ(*a < *b, an * bd < bn * ad) << *a << " < " << *b;
        ASSERT_EQ(*a <= *b, an * bd <= bn * ad);
        ASSERT_EQ(*a == *b, an * bd == bn * ad);
        for (const auto &result : {sum, difference, product, quotient})
            expectReduced(result);
        raised += !sum + !product;
    }
    EXPECT_GT(raised, 1000) << "the overflow paths were not reached";
}

TEST(Rational, limitsRaiseInsteadOfWrapping)
{
    EXPECT_THROW(rational(1, 0), CoreException);
    EXPECT_THROW(rational(1, least), CoreException);
    EXPECT_THROW(rational(least, -1), CoreException);
    EXPECT_THROW(-rational(least), CoreException);
    EXPECT_THROW(abs(rational(least)), CoreException);
    EXPECT_THROW(rational().reciprocal(), CoreException);
    EXPECT_THROW(rational(1) / rational(0), CoreException);
    EXPECT_EQ(rational(least, least), rational(1));
    EXPECT_EQ(rational(least, 2).numerator(), least / 2);
    EXPECT_EQ(rational(least).floor(), least);
    EXPECT_LT(rational(most - 1, most), rational(1));
    rational unchanged(most);
    EXPECT_THROW(unchanged += 1, CoreException);
    EXPECT_EQ(unchanged, rational(most));
}

TEST(Rational, roundingAndModuloFollowTheFloor)
{
    for (std::int64_t numerator = -40; numerator <= 40; ++numerator)
        for (std::int64_t denominator = 1; denominator <= 9; ++denominator) {
            const rational value(numerator, denominator);
            EXPECT_LE(rational(value.floor()), value);
            EXPECT_LT(value, rational(value.floor() + 1));
            EXPECT_GE(rational(value.ceil()), value);
            EXPECT_GT(value, rational(value.ceil() - 1));
            EXPECT_EQ(value.round(), (value + rational(1, 2)).floor());
            for (const rational step : {rational(1), rational(1, 3), rational(3, 2)}) {
                const rational rest = modulo(value, step);
                EXPECT_EQ(step * floorDivide(value, step) + rest, value);
                EXPECT_GE(rest, 0);
                EXPECT_LT(rest, step);
            }
        }
}

TEST(Rational, textsGoRoundTripAndNothingElseIsRead)
{
    Terms term;
    for (int i = 0; i < 2000; ++i)
        if (const auto value = tried([&] { return rational(term(), term()); })) {
            ASSERT_EQ(rational::fromString(value->toString()), value);
            ASSERT_EQ(value->toQString().toStdString(), value->toString());
        }
    EXPECT_EQ(rational(3, 2).toString(), "3/2");
    EXPECT_EQ(rational(-6, 2).toString(), "-3");
    EXPECT_EQ(rational::fromString("6/4"), rational(3, 2));
    for (const char *text : {"", "-", "/", "1/", "/2", "1/0", "1/-2", "1/+2", "1//2", "1/2/3", " 1",
                             "1 ", "1.5", "9223372036854775808", "1/9223372036854775808"})
        EXPECT_EQ(rational::fromString(text), std::nullopt) << text;
}

TEST(Rational, hashesOfNearbyFractionsDiffer)
{
    std::unordered_set<std::size_t> hashes;
    std::unordered_set<rational> values;
    for (std::int64_t numerator = 0; numerator < 64; ++numerator)
        for (std::int64_t denominator = 1; denominator <= 64; ++denominator) {
            values.insert(rational(numerator, denominator));
            hashes.insert(std::hash<rational>()(rational(numerator, denominator)));
        }
    EXPECT_EQ(hashes.size(), values.size());
    EXPECT_EQ(qHash(rational(2, 4)), qHash(rational(1, 2)));
}

} // namespace
