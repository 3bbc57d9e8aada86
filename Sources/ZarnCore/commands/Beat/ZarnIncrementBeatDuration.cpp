// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnIncrementBeatDuration.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>

namespace zarn::cmd {

IncrementBeatDuration::IncrementBeatDuration()
    : ChangeRhythm(QStringLiteral("IncrementBeatDuration"))
{
}
IncrementBeatDuration::~IncrementBeatDuration() = default;

bool IncrementBeatDuration::init(Score *score, const ScoreModelRange &range, int steps)
{
    ZARN_ASSERT_IN("zarn::cmd::IncrementBeatDuration::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Value"), QString::number(steps));
    _steps = steps;
    return steps != 0 && steps >= -MostSteps && steps <= MostSteps && prepare(score, {range});
}

std::optional<RhythmValue> IncrementBeatDuration::changed(const RhythmValue &rhythm) const
{
    using NoteValue = RhythmValue::NoteValue;
    const int value = static_cast<int>(rhythm.getNoteValue());
    const int longest = static_cast<int>(NoteValue::Long);
    const int shortest = static_cast<int>(NoteValue::TwoHundredFiftySixth);
    const int next = std::clamp(value - _steps, longest, shortest); // long values come first
    if (next == value)
        return std::nullopt;
    RhythmValue changed = rhythm;
    changed.setNoteValue(static_cast<NoteValue>(next));
    return changed;
}

} // namespace zarn::cmd
