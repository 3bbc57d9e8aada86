// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn::engraving {

/// How far ink reaches out of a staff on one side, over the width of a system. Distances grow
/// outwards, away from the staff; widths and distances are in staff spaces.
///
/// The width is cut into cells; a cell holds the outermost ink in it.
class Skyline {
public:
    static constexpr double cellWidth = 0.25;

    /// Reaches nowhere: `floor` is what an empty place answers.
    Skyline(double width, double floor);

    void insert(double left, double right, double reach);

    /// The outermost ink between two places.
    double reach(double left, double right) const;

    /// The least distance of two staves that face each other: this one's outer side down, the
    /// other's up. Both are of the same width.
    double distance(const Skyline &facing) const;

    /// The same between two places.
    double distance(const Skyline &facing, double left, double right) const;

    /// The outermost ink of all.
    double outermost() const;

private:
    std::size_t cellAt(double x) const;

    std::vector<float> _cells;
};

} // namespace zarn::engraving
