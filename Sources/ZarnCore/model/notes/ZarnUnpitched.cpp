// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnUnpitched.h>

#include <ZarnCore/model/ZarnTrack.h>

namespace zarn {

bool isUnpitchedNote(const Note &note, const Track &track) noexcept
{
    return note.staffLine() != Note::NoStaffLine || note.percussionArticulation() != Note::Unset
        || (!note.spelling() && InstrumentSet::isUnpitched(track.type()));
}

} // namespace zarn
