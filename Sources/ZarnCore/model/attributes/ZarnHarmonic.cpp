// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnHarmonic.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/attributes/EnumeratorWord.h>

#include <array>

namespace zarn {

namespace {

constexpr unsigned lowest = Harmonic::LowestPartial;

/// Per partial from 2: 12 log2(n) semitones, to the nearest key.
constexpr std::array<std::uint8_t, 11> semitonesOfPartials = {12, 19, 24, 28, 31, 34,
                                                              36, 38, 40, 42, 43};

/// Per partial from 2: a whole fret next to a place where it speaks, -12 log2(1 - k/n); the highest
/// partials lie closer together than frets.
constexpr std::array<std::uint8_t, 11> fretsOfPartials = {12, 7, 5, 4, 3, 6, 8, 2, 2, 2, 2};

} // namespace

unsigned Harmonic::partialAtFret(int fret) noexcept
{
    switch (fret) {
    case 12:
        return 2;
    case 7:
    case 19:
        return 3;
    case 5:
    case 24:
        return 4;
    case 4:
    case 9:
    case 16:
        return 5;
    case 3:
        return 6;
    case 6:
    case 10:
    case 15:
        return 7;
    case 8:
    case 17:
        return 8;
    case 2:
    case 14:
        return 9;
    default:
        return 0;
    }
}

unsigned Harmonic::fretOfPartial(unsigned partial)
{
    ZARN_ASSERT_IN("zarn::Harmonic::fretOfPartial", partial >= lowest && partial <= HighestPartial);
    return fretsOfPartials[partial - lowest];
}

int Harmonic::semitones(unsigned partial)
{
    ZARN_ASSERT_IN("zarn::Harmonic::semitones", partial >= lowest && partial <= HighestPartial);
    return semitonesOfPartials[partial - lowest];
}

std::string Harmonic::toString() const
{
    return harmonicTypeToString(type) + (partial == 0 ? "" : " " + std::to_string(partial));
}

std::optional<Harmonic> Harmonic::fromString(std::string_view text)
{
    utils::TextScanner scanner(text);
    Harmonic harmonic;
    if (!takeEnumerator<harmonicTypeToString, harmonicTypeFromString>(scanner, harmonic.type)
        || (scanner.take(" ") && !scanner.takeNumber(harmonic.partial)))
        return std::nullopt;
    return scanner.isAtEnd() && harmonic.isValid() ? std::optional<Harmonic>(harmonic)
                                                   : std::nullopt;
}

} // namespace zarn
