// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Ink.h>

#include <array>
#include <vector>

namespace zarn::engraving {

/// A point of a Bezier curve, from 0 at its begin to 1 at its end.
Point pointOn(const std::array<Point, 4> &handles, double t) noexcept;

/// A tie or slur that seeks its place: a Bezier curve from left to right.
struct Bow {
    Point from;
    Point to;
    double fromRise = 0; ///< of the handle at each end, upwards above 0
    double toRise = 0;
    bool isTilted = false; ///< rises count at right angles to the line between the ends

    /// As high everywhere, when it is drawn: the middle reaches three quarters of its handles.
    static Bow arched(Point from, Point to, double height)
    {
        return {from, to, height * 4 / 3, height * 4 / 3};
    }

    /// From end to end, straight on.
    double length() const noexcept;

    std::array<Point, 4> handles() const;

    /// Points of the curve, its ends included.
    std::vector<Point> samples(std::size_t count) const;

    /// As many as tell where it runs.
    std::vector<Point> samples() const { return samples(sampleCount()); }

    /// How many pieces these are the ends of.
    std::size_t sampleCount() const;
};

} // namespace zarn::engraving
