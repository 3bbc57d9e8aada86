// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnTieExistingNotes.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>

namespace zarn {

TieExistingNotes::TieExistingNotes(const QString &name) : SetByTable(name) { }
TieExistingNotes::~TieExistingNotes() = default;

bool TieExistingNotes::prepare(Score *score, const ScoreModelRange &range, bool checked)
{
    return SetByTable::prepare(score, range, {{NoteAttribute::Tied, checked}});
}

bool TieExistingNotes::takes(const MarkedPlace &, const Beat &beat, const Note &note) const
{
    if (given()[0].isDefault)
        return note.isTied();
    const auto voice = beat.parentVoice();
    const auto before = voice ? beatInFrontOfJoint(*voice, beat.index()) : nullptr;
    return before
        && std::any_of(before->notes().begin(), before->notes().end(), [&](const auto &held) {
               return sameLocation(note, *held) && note.midi() == held->midi();
           });
}

} // namespace zarn
