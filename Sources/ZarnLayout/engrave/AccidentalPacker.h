// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>

namespace zarn::engraving {

/// An accidental that looks for its place in front of the heads of its column.
struct PackedAccidental {
    AccidentalSign sign;
    double scale = 1;
    MarkPlace place; ///< of its note
    double y = 0;    ///< the same
    double x = 0;    ///< the answer: the left edge, from the column

    /// How far it reaches to the left, from the column.
    double left(const Fonts &fonts) const;

    /// Adds its marks, with parentheses, around the origin of a chord.
    void addTo(Inks &inks, const Chord &chord, const Pen &pen) const;
};

using PackedAccidentals = Few<PackedAccidental, 4>;
using TakenBoxes = Few<Box, 12>;

/// Puts accidentals as near to the heads as they go, from the outermost notes to the inner ones,
/// into the corners that signs leave open. `taken` is the ink of the column's heads and stems.
void packAccidentals(PackedAccidentals &accidentals, const TakenBoxes &taken, const Fonts &fonts);

} // namespace zarn::engraving
