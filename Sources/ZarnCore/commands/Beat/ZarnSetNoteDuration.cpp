// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetNoteDuration.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetNoteDuration::SetNoteDuration() : ChangeRhythm(QStringLiteral("SetNoteDuration")) { }
SetNoteDuration::~SetNoteDuration() = default;

bool SetNoteDuration::init(Score *score, const ScoreModelRange &range,
                           RhythmValue::NoteValue noteValue)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteDuration::init", score != NULL);
    const bool isValue = noteValue < RhythmValue::NoteValue::Invalid;
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"),
           isValue ? RhythmValue(noteValue).toQString() : QStringLiteral("?"));
    _noteValue = noteValue;
    return isValue && prepare(score, {range});
}

std::optional<RhythmValue> SetNoteDuration::changed(const RhythmValue &rhythm) const
{
    RhythmValue changed = rhythm;
    changed.setNoteValue(_noteValue);
    return changed;
}

} // namespace zarn::cmd
