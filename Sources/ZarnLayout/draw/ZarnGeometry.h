// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

/// Engraved music: from a score to what is drawn where.
namespace zarn::layout {

/// Length on the sheet, in 1/1024 of a staff space, which is the distance of two staff lines.
/// Whole numbers, so that equal layouts are equal on every machine.
using Unit = std::int32_t;
inline constexpr Unit staffSpace = 1024;

/// A length without its fraction; one of kilometres ends at a bound that leaves room for sums.
constexpr std::int32_t boundedLength(double length) noexcept
{
    constexpr double most = 1 << 30;
    return static_cast<std::int32_t>(length < -most ? -most : length > most ? most : length);
}

/// The nearest whole number of units for a length in staff spaces.
constexpr Unit fromSpaces(double spaces) noexcept
{
    return boundedLength(spaces * staffSpace + (spaces < 0 ? -0.5 : 0.5));
}

constexpr double toSpaces(Unit length) noexcept
{
    return static_cast<double>(length) / staffSpace;
}

/// x grows to the right, y downwards.
struct Point {
    Unit x = 0;
    Unit y = 0;

    friend constexpr bool operator==(Point a, Point b) noexcept { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(Point a, Point b) noexcept { return !(a == b); }
    friend constexpr Point operator+(Point a, Point b) noexcept { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Point operator-(Point a, Point b) noexcept { return {a.x - b.x, a.y - b.y}; }
};

/// A rectangle; empty when nothing is between its edges.
struct Box {
    Unit left = 0;
    Unit top = 0;
    Unit right = 0;
    Unit bottom = 0;

    constexpr Unit width() const noexcept { return right - left; }
    constexpr Unit height() const noexcept { return bottom - top; }
    constexpr bool isEmpty() const noexcept { return right <= left || bottom <= top; }
    constexpr bool contains(Point point) const noexcept
    {
        return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
    }

    constexpr Box movedBy(Point offset) const noexcept
    {
        return {left + offset.x, top + offset.y, right + offset.x, bottom + offset.y};
    }
    constexpr Box grownBy(Unit margin) const noexcept
    {
        return {left - margin, top - margin, right + margin, bottom + margin};
    }

    /// Whether they share more than an edge.
    constexpr bool overlaps(const Box &other) const noexcept
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }

    /// The smallest box around both, the other alone when one of them is a default box.
    constexpr Box unitedWith(const Box &other) const noexcept
    {
        if (*this == Box())
            return other;
        if (other == Box())
            return *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }

    friend constexpr bool operator==(const Box &a, const Box &b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend constexpr bool operator!=(const Box &a, const Box &b) noexcept { return !(a == b); }
};

} // namespace zarn::layout
