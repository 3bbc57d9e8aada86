// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>

namespace zarn::engraving {

/// An accidental that looks for its place in front of the heads of its column.
struct PackedAccidental {
    Inks inks;    ///< around the origin: the left edge and the middle of the sign
    double y = 0; ///< of its note
    double x = 0; ///< the answer: the left edge, from the column
};

/// Makes the marks of an accidental, with its parentheses.
Inks accidentalInks(const AccidentalSign &sign, const Pen &pen, double scale);

/// Puts accidentals as near to the heads as they go, from the outermost notes to the inner ones,
/// into the corners that signs leave open. `taken` is the ink of the column's heads and stems.
void packAccidentals(std::vector<PackedAccidental> &accidentals, const std::vector<Box> &taken,
                     const Fonts &fonts);

} // namespace zarn::engraving
