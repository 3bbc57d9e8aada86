// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/InkField.h>

#include <utility>
#include <vector>

namespace zarn::engraving {

/// Where a short curve between two heads may begin and end, below them and above them, and where it
/// would like to lie.
struct BowEnds {
    int side = 1;        ///< 1 above the heads, -1 below
    bool isLevel = true; ///< both heads are on one line
    Point from[2];       ///< below, above
    Point to[2];
};

/// The ink of a row for curves of one kind: all of it, and what none of them may cross.
class CurveField {
public:
    /// The inks must outlive it, and nothing of them go.
    CurveField(const Inks &inks, std::vector<MarkKind> crossable)
        : _all(inks), _solid(inks, std::move(crossable))
    {
    }

    /// More that is in the way.
    void add(const Inks &inks)
    {
        _all.add(inks);
        _solid.add(inks);
    }

    /// A curve that others are to be told from.
    void add(const Bow &bow) { _all.add(bow); }

    const InkField &all() { return _all.now(); }

    /// Whether a curve lies on ink that it may not cross.
    bool hidesInk(const Bow &bow);

    /// The curve that is nearest to the usual one of those that lie on no ink, or on the least.
    Bow nearest(const BowEnds &wish);

    /// The same of more curves, where one that is still to be seen for what it is has no room: they
    /// are farther away from their heads or taller, and begin later or end earlier.
    Bow afar(const BowEnds &wish);

    /// The nearest one, or else one afar.
    Bow freest(const BowEnds &wish);

private:
    GrowingInkField _all;
    GrowingInkField _solid; ///< grows where a curve asks for it
};

/// The curve that bends least from the wished one, on the least ink. `sign` is 1 for one that bows
/// upwards, -1 downwards.
Bow leastInked(const Bow &wish, double sign, const InkField &field);

/// A curve whose middle rises, and then its ends, until all of it is outside of its edges: the y of
/// the outermost ink at points of the curve, evenly from end to end.
Bow aroundEdges(Bow bow, bool isAbove, const std::vector<double> &edges);

} // namespace zarn::engraving
