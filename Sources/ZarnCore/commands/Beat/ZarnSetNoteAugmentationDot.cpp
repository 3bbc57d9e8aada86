// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetNoteAugmentationDot.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetNoteAugmentationDot::SetNoteAugmentationDot()
    : ChangeRhythm(QStringLiteral("SetNoteAugmentationDot"))
{
}
SetNoteAugmentationDot::~SetNoteAugmentationDot() = default;

bool SetNoteAugmentationDot::init(Score *score, const ScoreModelRange &range, unsigned dots)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteAugmentationDot::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Value"), QString::number(dots));
    _dots = dots;
    return dots <= SetBeatRhythm::MostDots && prepare(score, {range});
}

std::optional<RhythmValue> SetNoteAugmentationDot::changed(const RhythmValue &rhythm) const
{
    RhythmValue changed = rhythm;
    changed.setAugmentationDot(_dots);
    return changed;
}

} // namespace zarn::cmd
