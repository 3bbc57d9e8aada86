// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteSoundingAccidental.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetNoteSoundingAccidental::SetNoteSoundingAccidental()
    : RespellNotes(QStringLiteral("SetNoteSoundingAccidental"))
{
}
SetNoteSoundingAccidental::~SetNoteSoundingAccidental() = default;

bool SetNoteSoundingAccidental::init(Score *score, const ScoreModelRange &range,
                                     NoteAccidental accidental)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteSoundingAccidental::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"),
           accidental.isValid() ? accidental.toString(false) : QStringLiteral("?"));
    _accidental = accidental;
    return accidental.isValid() && prepare(score, range);
}

std::optional<NoteMove> SetNoteSoundingAccidental::moved(const MarkedPlace &, const Note &note,
                                                         const NotePosition &from) const
{
    const core::Pitch before = written(note);
    const core::Pitch after(before.naturalStep(), _accidental.alteration(), before.octave());
    return repitched(from, after.midi() - note.midi(),
                     spellingNumber(PitchClass::fromPitch(after)));
}

} // namespace zarn::cmd
