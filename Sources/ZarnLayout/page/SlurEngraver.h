// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <cstddef>
#include <vector>

namespace zarn::engraving {

/// A slur in one row, by the numbers of the chords at its ends.
struct SlurSpan {
    std::size_t first;
    std::size_t last;
    bool comesFromBefore = false; ///< begins in a system before
    bool goesOn = false;          ///< ends in a later system
    SlurLine line = SlurLine::Solid;
    SlurSide side = SlurSide::Auto;
};

/// The slurs that a row draws: all of its staff but those that lead to another.
std::vector<SlurSpan> slurSpans(const RowDraft &row, const SystemDraft &draft);

/// Draws the slurs of a row of notes; those that leave the system by halves.
void addSlurs(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
