// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn::engraving {

/// A line of columns with springs between neighbours and rods between any two. A spring is
/// `fixed + f * spring` long, at a factor f that is the same along the line; a rod says how close
/// two columns may come, and how much of that is air between their ink, which goes where a line has
/// no room for it. So equal springs are equally long wherever no rod binds.
class SpringLine {
public:
    struct Rod {
        std::uint32_t from; ///< a column in front of the one that it belongs to
        double length;
        double air;
    };

    void reserve(std::size_t columns, std::size_t rods)
    {
        _columns.reserve(columns);
        _rods.reserve(rods);
    }

    /// Adds a column at the end, with the spring that leads to it; returns its number.
    unsigned addColumn(double fixed, double spring);

    /// Keeps the last column from an earlier one.
    void addRod(unsigned from, double length, double air = 0);

    /// The same for any column.
    void addRodTo(unsigned column, unsigned from, double length, double air = 0);

    unsigned columnCount() const noexcept { return static_cast<unsigned>(_columns.size()); }

    /// Width at a factor.
    double width(double factor) const;

    /// The factor at which the line is as wide as asked; 0 when the rods alone are wider.
    double factorFor(double width) const;

    /// Places of the columns at a factor.
    std::vector<double> places(double factor) const;

    /// Places in a line whose rods alone are wider than asked: all of them give up the same part of
    /// their air, and all of it where that is too little.
    std::vector<double> squeezedPlaces(double width) const;

private:
    struct Column {
        double fixed;
        double spring;
        std::uint32_t firstRod;
        std::uint32_t rodEnd;
    };

    struct LateRod {
        unsigned column;
        unsigned from;
        double length;
        double air;
    };

    /// `squeeze` is the part of the air that goes.
    double lay(double factor, std::vector<double> &places, double squeeze = 0) const;

    /// The width at a factor, and how much it grows with that.
    struct Growth {
        double width;
        double slope;
    };
    Growth growthAt(double factor) const;

    std::vector<Column> _columns;
    std::vector<Rod> _rods;
    std::vector<LateRod> _late;           ///< by ascending columns
    mutable std::vector<Growth> _growths; ///< up to each column
    mutable std::vector<double> _scratch;
};

} // namespace zarn::engraving
