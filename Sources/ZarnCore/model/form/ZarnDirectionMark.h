// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <cstdint>
#include <set>

namespace zarn {

/// Signs that change the order of playing: targets (Coda to Fine), jumps back to the start or to a
/// segno, and jumps on to a coda.
enum class DirectionMark : std::uint8_t {
    Coda,
    DoubleCoda,
    Segno,
    SegnoSegno,
    Fine,
    DaCapo,
    DaCapoAlCoda,
    DaCapoAlDoubleCoda,
    DaCapoAlFine,
    DaSegno,
    DaSegnoAlCoda,
    DaSegnoAlDoubleCoda,
    DaSegnoAlFine,
    DaSegnoSegno,
    DaSegnoSegnoAlCoda,
    DaSegnoSegnoAlDoubleCoda,
    DaSegnoSegnoAlFine,
    DaCoda,
    DaDoubleCoda,
    NoDirection,
};

constexpr int DirectionMarkCount = static_cast<int>(DirectionMark::NoDirection);

/// The bit of a mark in a set of marks that is a number; 0 for `NoDirection`.
constexpr std::uint32_t directionBit(DirectionMark mark) noexcept
{
    return mark < DirectionMark::NoDirection ? std::uint32_t(1) << static_cast<unsigned>(mark) : 0;
}

constexpr std::uint32_t AllDirectionBits = (std::uint32_t(1) << DirectionMarkCount) - 1;

/// "Coda", "DaCapoAlDbleCoda" and so on; "NoDirection" for anything else.
ZARNCORE_EXPORT QString directionMarkToQString(DirectionMark mark);

/// The mark of an exact text; `NoDirection` for any other.
ZARNCORE_EXPORT DirectionMark directionMarkFromQString(const QString &text);

/// The texts in slot order with ", " between them; empty for an empty set.
ZARNCORE_EXPORT QString directionMarksToQString(const std::set<DirectionMark> &marks);

/// Where a jump leads: to a mark, or to the first bar when that is `NoDirection`; the marks that
/// are no jumps lead to `NoDirection` too.
ZARNCORE_EXPORT DirectionMark targetOfDirection(DirectionMark mark) noexcept;

/// True for the marks that send the player elsewhere.
ZARNCORE_EXPORT bool isJump(DirectionMark mark) noexcept;

} // namespace zarn
