// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace zarn::engraving {

/// A line of columns with springs between neighbours and rods between any two. A spring is
/// `fixed + f * spring` long, at a factor f that is the same along the line; a rod says how close
/// two columns may come. So equal springs are equally long wherever no rod binds.
class SpringLine {
public:
    struct Rod {
        std::uint32_t from; ///< a column in front of the one that it belongs to
        double length;
    };

    /// Adds a column at the end, with the spring that leads to it; returns its number.
    unsigned addColumn(double fixed, double spring);

    /// Keeps the last column from an earlier one.
    void addRod(unsigned from, double length);

    /// The same for any column.
    void addRodTo(unsigned column, unsigned from, double length);

    unsigned columnCount() const noexcept { return static_cast<unsigned>(_columns.size()); }

    /// Width at a factor.
    double width(double factor) const;

    /// The factor at which the line is as wide as asked; 0 when the rods alone are wider.
    double factorFor(double width) const;

    /// Places of the columns at a factor.
    std::vector<double> places(double factor) const;

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
    };

    double lay(double factor, std::vector<double> &places) const;

    std::vector<Column> _columns;
    std::vector<Rod> _rods;
    std::vector<LateRod> _late; ///< by ascending columns
    mutable std::vector<double> _scratch;
};

} // namespace zarn::engraving
