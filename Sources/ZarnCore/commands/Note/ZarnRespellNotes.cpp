// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnRespellNotes.h>

#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

namespace zarn {

RespellNotes::RespellNotes(const QString &name) : MoveNotes(name, {}) { }
RespellNotes::~RespellNotes() = default;

void RespellNotes::enterBar(const Bar &bar)
{
    _keyAccidentals = writtenKeySignature(bar).accidentalCount();
}

bool RespellNotes::takes(const MarkedPlace &place, const Note &note) const
{
    return place.isPitched && note.midi() != Note::Unset;
}

core::Pitch RespellNotes::written(const Note &note) const
{
    return writtenPitch(note, note.midi(), _keyAccidentals);
}

} // namespace zarn
