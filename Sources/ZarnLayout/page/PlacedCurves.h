// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Ink.h>

#include <vector>

namespace zarn::engraving {

/// Ties and slurs of a row that have their places: slurs over more notes go around them.
class PlacedCurves {
public:
    /// A tie or slur, not one that stands on end.
    void add(const Ink &curve);

    /// Of a curve that seeks its place: where the outermost ink is at some points of it, evenly
    /// from end to end. Adds the curves between its ends that bow to its side. Near the ends they
    /// are left out: those may begin and end with it.
    void addUnder(const std::vector<Point> &points, bool isAbove, std::vector<double> &edges) const;

private:
    struct Curve {
        std::vector<Point> points; ///< from left to right
        bool isAbove;              ///< bows upwards

        double yAt(double x) const;
    };

    std::vector<Curve> _curves;
};

} // namespace zarn::engraving
