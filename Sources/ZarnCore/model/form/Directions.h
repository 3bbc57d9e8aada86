// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <array>
#include <set>

namespace zarn {

/// The bars at which the directions of a score stand.
class Directions {
public:
    /// By the number of the mark; -1 for one that is not set.
    using Bars = std::array<int, DirectionMarkCount>;

    Directions() noexcept { _bars.fill(-1); }
    explicit Directions(const Bars &bars) noexcept : _bars(bars) { }

    const Bars &bars() const noexcept { return _bars; }

    /// -1 also for what is no mark.
    int barOf(DirectionMark mark) const noexcept;
    std::set<DirectionMark> marksAt(int bar) const;
    bool hasAnyAt(int bar) const noexcept;

    /// False, and nothing changes, for a kind that is no mark.
    bool set(int kind, int bar) noexcept;

    /// Moves on what stands at a bar or behind it.
    void insertBars(unsigned at, unsigned count) noexcept;

    /// Unsets what stands at the bars `first` to `last` inclusive and moves back what stands
    /// behind.
    void eraseBars(unsigned first, unsigned last) noexcept;

    friend bool operator==(const Directions &left, const Directions &right) noexcept
    {
        return left._bars == right._bars;
    }

private:
    Bars _bars;
};

} // namespace zarn
