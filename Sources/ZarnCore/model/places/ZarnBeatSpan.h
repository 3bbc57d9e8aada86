// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <vector>

namespace zarn {

class Bar;
class ScoreModel;
class ScoreModelRange;
class Voice;

/// Beats of one voice that follow each other, by coordinates; both ends belong to it.
struct BeatSpan {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned bar = 0;
    unsigned voice = 0;
    unsigned firstBeat = 0;
    unsigned lastBeat = 0;

    unsigned count() const noexcept { return lastBeat - firstBeat + 1; }
};

/// The same range, its ends taken in a model.
ZARNCORE_EXPORT ScoreModelRange rangeIn(ScoreModel &model, const ScoreModelRange &range);

/// The beats that a range selects, one span per voice of a bar, in tree order; `RangeSpanIterator`
/// says which they are. The model of the range's indexes is not looked at.
ZARNCORE_EXPORT std::vector<BeatSpan> beatSpans(ScoreModel &model, const ScoreModelRange &range);

/// The bar and the voice of a span, null when there is none.
ZARNCORE_EXPORT Bar *barOf(const ScoreModel &model, const BeatSpan &span) noexcept;
ZARNCORE_EXPORT Voice *voiceOf(const ScoreModel &model, const BeatSpan &span) noexcept;

} // namespace zarn
