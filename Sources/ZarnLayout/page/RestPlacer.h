// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <vector>

namespace zarn::engraving {

/// A rest beside other voices: it waits until these and their beams have their places.
struct WaitingRest {
    Inks inks;
    bool isAbove = false; ///< the other voices are below it
};

/// Puts rests into a row. They keep off what other voices have on the staff: away from it, line by
/// line.
void addRests(RowDraft &row, std::vector<WaitingRest> rests, const Pen &pen);

} // namespace zarn::engraving
