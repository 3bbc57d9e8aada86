// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn {

ScoreModelRange rangeIn(ScoreModel &model, const ScoreModelRange &range)
{
    ScoreModelRange same = range;
    same.mutableFirst().setModel(&model);
    same.mutableSecond().setModel(&model);
    return same;
}

std::vector<BeatSpan> beatSpans(ScoreModel &model, const ScoreModelRange &range)
{
    std::vector<BeatSpan> spans;
    for (RangeSpanIterator it(rangeIn(model, range)); it.oneStep();)
        spans.push_back(it.span());
    return spans;
}

Bar *barOf(const ScoreModel &model, const BeatSpan &span) noexcept
{
    if (span.track >= model.trackCount())
        return nullptr;
    const auto &staves = model.tracks()[span.track]->staves();
    if (span.staff >= staves.size() || span.bar >= staves[span.staff]->barCount())
        return nullptr;
    return staves[span.staff]->bars()[span.bar].get();
}

Voice *voiceOf(const ScoreModel &model, const BeatSpan &span) noexcept
{
    const Bar *const bar = barOf(model, span);
    return bar != nullptr && span.voice < Bar::MaxVoices ? bar->voices()[span.voice].get()
                                                         : nullptr;
}

} // namespace zarn
