// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>

namespace zarn {

BeatRhythm beatRhythm(const Beat &beat)
{
    return {beat.rhythmValue(), beat.isWholeBarRest()};
}

void setBeatRhythm(Beat &beat, const BeatRhythm &rhythm)
{
    beat.setRhythmValue(rhythm.value);
    beat.setWholeBarRest(rhythm.isWholeBarRest);
}

} // namespace zarn

namespace zarn::cmd {

SetBeatRhythm::SetBeatRhythm() : SetAttribute(QStringLiteral("SetBeatRhythm")) { }
SetBeatRhythm::~SetBeatRhythm() = default;

void SetBeatRhythm::begin()
{
    keepSpans(places().range);
}

bool SetBeatRhythm::isWritable(const RhythmValue &rhythm) noexcept
{
    const auto isRatio = [](const RhythmValue::TupletRatio &ratio) {
        return (ratio.first == 0) == (ratio.second == 0);
    };
    const auto primary = rhythm.getPrimaryTupletRatio();
    const auto secondary = rhythm.getSecondaryTupletRatio();
    return rhythm.getAugmentationDot() <= MostDots && isRatio(primary) && isRatio(secondary)
        && (primary.first != 0 || secondary.first == 0);
}

bool SetBeatRhythm::init(Score *score, const ScoreModelRange &range, const RhythmValue &rhythm)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatRhythm::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"), rhythm.toQString());
    return isWritable(rhythm) && prepare(score, {range}, {rhythm, false});
}

} // namespace zarn::cmd
