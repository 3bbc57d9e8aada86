// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/InkField.h>

namespace zarn::engraving {

/// Where a short curve between two heads may begin and end, below them and above them, and where it
/// would like to lie.
struct BowEnds {
    int side = 1;        ///< 1 above the heads, -1 below
    bool isLevel = true; ///< both heads are on one line
    Point from[2];       ///< below, above
    Point to[2];
};

/// The curve that is nearest to the usual one of those that lie on no ink, or on the least.
Bow freestBow(const BowEnds &wish, const InkField &field);

} // namespace zarn::engraving
