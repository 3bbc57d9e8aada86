// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>
#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <vector>

namespace zarn { namespace sheet {

/// A beat that takes time, in its column.
struct TimedBeat {
    ColumnKey column;
    const RhythmValue *rhythm = nullptr;
};

/// Brackets over the tuplets of one voice.
void addTupletSpans(const std::vector<TimedBeat> &beats, TupletLevel level, int lane,
                    std::vector<Span> &spans);

}} // namespace zarn::sheet
