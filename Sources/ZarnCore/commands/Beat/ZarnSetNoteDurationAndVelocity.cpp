// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetNoteDurationAndVelocity.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/NotePlaces.h>

#include <algorithm>

namespace zarn::cmd {

namespace {

constexpr unsigned highestVelocity = 127;

} // namespace

SetNoteDurationAndVelocity::SetNoteDurationAndVelocity()
    : ChangeMarks(QStringLiteral("SetNoteDurationAndVelocity"))
{
}
SetNoteDurationAndVelocity::~SetNoteDurationAndVelocity() = default;

bool SetNoteDurationAndVelocity::init(Score *score, const ScoreModelIndex &index,
                                      const RhythmValue &rhythm, unsigned velocity)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteDurationAndVelocity::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    addArg(QStringLiteral("Type"), rhythm.toQString());
    addArg(QStringLiteral("Value"), QString::number(velocity));
    _rhythm = rhythm;
    _velocity = velocity;
    AlsoKept also;
    also.otherMarks = true;
    also.rhythms = true;
    return velocity >= 1 && velocity <= highestVelocity && SetBeatRhythm::isWritable(rhythm)
        && index.beatIndex() >= 0 && prepare(score, ScoreModelRange(index), also);
}

bool SetNoteDurationAndVelocity::takes(const MarkedPlace &, const Beat &beat, const Beat &) const
{
    return beat.hasNotes();
}

void SetNoteDurationAndVelocity::change(const MarkedPlace &place, Beat &beat, Beat &)
{
    setBeatRhythm(beat, {_rhythm, false});
    const NotePlaces named(range());
    const auto &notes = beat.notes();
    const bool isAnyNamed = std::any_of(notes.begin(), notes.end(),
                                        [&](const auto &note) { return named.has(place, *note); });
    for (const auto &note : notes)
        if (!isAnyNamed || named.has(place, *note))
            note->setVelocity(_velocity);
}

} // namespace zarn::cmd
