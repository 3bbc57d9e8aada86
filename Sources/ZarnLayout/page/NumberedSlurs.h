// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <vector>

namespace zarn::engraving {

/// A slur by number, from any voice and staff of a track to any other.
struct NumberedSlur {
    const RowDraft *firstRow = nullptr; ///< null where it comes from a system before
    const RowDraft *lastRow = nullptr;  ///< null where it goes on
    std::size_t first = 0;
    std::size_t last = 0;
    SlurLine line = SlurLine::Solid;
    SlurSide side = SlurSide::Auto;
};

/// Those of a track in a system, whole ones and halves, in the order of their ends.
std::vector<NumberedSlur> numberedSlurs(const SystemDraft &draft, unsigned track);

} // namespace zarn::engraving
