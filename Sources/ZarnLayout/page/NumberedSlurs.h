// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <cstddef>
#include <optional>
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

/// The first chord of any voice that is drawn at a time of a bar, by its number.
std::optional<std::size_t> chordAt(const RowDraft &row, unsigned shownBar,
                                   const utils::rational &onset);

/// Those of a track in a system, whole ones and halves, in the order of their ends.
std::vector<NumberedSlur> numberedSlurs(const SystemDraft &draft, unsigned track);

} // namespace zarn::engraving
