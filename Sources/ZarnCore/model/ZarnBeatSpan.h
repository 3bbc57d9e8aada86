// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <vector>

namespace zarn {

class Bar;
class Beat;
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

/// The beats that a range covers, one span per voice of a bar, in tree order.
///
/// A range in single-voice mode runs through the voice of its first end, from beat to beat; an end
/// without a beat takes in its whole bar. In multi-voice mode whole bars are covered, in the staves
/// from end to end, and in multi-track mode in every staff of every track.
///
/// Empty when an end does not exist in the model, or when there is no beat between them. The model
/// of the range's indexes is not looked at.
ZARNCORE_EXPORT std::vector<BeatSpan> beatSpans(const ScoreModel &model,
                                                const ScoreModelRange &range);

/// The bar and the voice of a span, null when there is none.
ZARNCORE_EXPORT Bar *barOf(const ScoreModel &model, const BeatSpan &span) noexcept;
ZARNCORE_EXPORT Voice *voiceOf(const ScoreModel &model, const BeatSpan &span) noexcept;

/// The beats of the spans, in order. The spans must exist.
ZARNCORE_EXPORT std::vector<std::shared_ptr<Beat>> beatsOf(const ScoreModel &model,
                                                           const std::vector<BeatSpan> &spans);

} // namespace zarn
