// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/RhythmFitter.h>

#include <algorithm>
#include <initializer_list>
#include <numeric>

namespace zarn::io {

using utils::rational;
using Fit = RhythmFitter::Fit;

namespace {

constexpr int longType = 1;
constexpr int shortestType = 11; ///< the 256th
constexpr int mostTerm = 255;

/// The ratio with terms that a rhythm value can hold: neither is 1, both fit in a byte.
std::optional<TupletRatio> holdable(std::int64_t actual, std::int64_t normal)
{
    if (actual > mostTerm || normal > mostTerm) {
        const auto divisor = std::gcd(actual, normal);
        actual /= divisor;
        normal /= divisor;
    }
    const std::int64_t factor = actual == 1 || normal == 1 ? 2 : 1;
    if (actual * factor > mostTerm || normal * factor > mostTerm)
        return std::nullopt;
    return TupletRatio{static_cast<int>(actual * factor), static_cast<int>(normal * factor)};
}

/// A type with its dots and ratios; what needs more than two ratios multiplies the last ones.
std::optional<Fit> held(int type, int dots, std::initializer_list<TupletRatio> wanted)
{
    std::array<TupletRatio, 2> ratios;
    std::size_t count = 0;
    std::int64_t actual = 1;
    std::int64_t normal = 1;
    for (const auto &ratio : wanted) {
        if (ratio.actual == ratio.normal)
            continue;
        const bool merged = count == ratios.size();
        actual = (merged ? actual : 1) * ratio.actual;
        normal = (merged ? normal : 1) * ratio.normal;
        const auto fit = holdable(actual, normal);
        if (!fit)
            return std::nullopt;
        count += !merged;
        ratios[count - 1] = *fit;
    }
    RhythmValue value(static_cast<RhythmValue::NoteValue>(type - longType),
                      static_cast<unsigned>(dots));
    const auto pairOf = [](const TupletRatio &ratio) {
        return RhythmValue::TupletRatio(static_cast<std::uint8_t>(ratio.actual),
                                        static_cast<std::uint8_t>(ratio.normal));
    };
    if (count > 0)
        value.setPrimaryTupletRatio(pairOf(ratios[0]));
    if (count > 1)
        value.setSecondaryTupletRatio(pairOf(ratios[1]));
    return Fit{value, value.getLength()};
}

/// As `held`, with any type and any number of dots.
std::optional<Fit> heldWide(int type, int dots, const TupletRatio &outer, const TupletRatio &inner)
{
    const int nearest = std::clamp(type, longType, shortestType);
    TupletRatio extra;
    if (type > nearest)
        extra.actual = 1 << (type - nearest);
    else
        extra.normal = 1 << (nearest - type);
    if (dots > 3) {
        // Dots past the third: 2 - 1/2^n times the plain value.
        if (dots > 6)
            return std::nullopt;
        extra.actual <<= dots;
        extra.normal *= (2 << dots) - 1;
        dots = 0;
    }
    return held(nearest, dots, {outer, inner, extra});
}

/// The plain or dotted type of exactly this length.
std::optional<std::pair<int, int>> typeOfLength(const rational &length)
{
    for (int dots = 0; dots <= 3; ++dots) {
        const auto plain = length / rational((2 << dots) - 1, std::int64_t(1) << dots);
        const auto numerator = plain.numerator();
        const auto denominator = plain.denominator();
        if ((numerator & (numerator - 1)) != 0 || (denominator & (denominator - 1)) != 0)
            continue;
        int type = WrittenRhythm::Quarter;
        for (auto rest = numerator; rest > 1; rest >>= 1)
            --type;
        for (auto rest = denominator; rest > 1; rest >>= 1)
            ++type;
        if (type >= 0 && type <= 13)
            return std::make_pair(type, dots);
    }
    return std::nullopt;
}

} // namespace

rational lengthOfType(int type)
{
    return type <= WrittenRhythm::Quarter
        ? rational(std::int64_t(1) << (WrittenRhythm::Quarter - type))
        : rational(1, std::int64_t(1) << (type - WrittenRhythm::Quarter));
}

const std::optional<Fit> &RhythmFitter::written(const WrittenRhythm &rhythm)
{
    const auto slot = static_cast<std::size_t>(rhythm.type + 3 * rhythm.dots
                                               + 5 * rhythm.outer.actual + 7 * rhythm.inner.actual)
        % _memory.size();
    auto &memory = _memory[slot];
    if (!(memory.rhythm == rhythm) || !memory.fit) {
        memory.rhythm = rhythm;
        memory.fit = heldWide(rhythm.type, rhythm.dots, rhythm.outer, rhythm.inner);
    }
    return memory.fit;
}

std::optional<Fit> RhythmFitter::ofLength(const rational &length, const WrittenRhythm &rhythm)
{
    if (const auto plain = typeOfLength(length))
        return heldWide(plain->first, plain->second, {}, {});
    // One of two tuplets may have been forgotten.
    if (rhythm.type != WrittenRhythm::NoType)
        for (const auto &ratio : {rhythm.outer, rhythm.inner})
            if (const auto fit = heldWide(rhythm.type, rhythm.dots, ratio, {});
                fit && fit->length == length)
                return fit;
    const auto tuplets = rational(rhythm.outer.normal, rhythm.outer.actual)
        * rational(rhythm.inner.normal, rhythm.inner.actual);
    if (const auto inside = typeOfLength(length / tuplets))
        if (const auto fit = heldWide(inside->first, inside->second, rhythm.outer, rhythm.inner))
            return fit;
    for (int type = longType; type <= shortestType; ++type) {
        const auto ratio = length / lengthOfType(type);
        if (ratio > rational(1) && type < shortestType)
            continue;
        if (const auto terms = holdable(ratio.denominator(), ratio.numerator()))
            return held(type, 0, {*terms});
    }
    return std::nullopt;
}

} // namespace zarn::io
