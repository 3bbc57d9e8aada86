// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>

#include <vector>

namespace zarn {

class RhythmValue;

namespace sheet {

/// A beat that takes time, in its column.
struct TimedBeat {
    ColumnKey column;
    const RhythmValue *rhythm = nullptr;
};

enum class TupletLevel { Outer, Inner };

/// Brackets over the tuplets of one voice. The tree holds a ratio per beat, not brackets: beats of
/// one ratio form a group until they fill as many values as the ratio names.
void addTupletSpans(const std::vector<TimedBeat> &beats, TupletLevel level, int lane,
                    std::vector<Span> &spans);

} // namespace sheet
} // namespace zarn
