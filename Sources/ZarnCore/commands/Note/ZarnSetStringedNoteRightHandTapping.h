// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Has the right hand tap fretted notes. Takes the tapping of the left hand off.
class ZARNCORE_EXPORT SetStringedNoteRightHandTapping final
    : public SetMark<NoteAttribute::RightTap, bool, Note> {
public:
    SetStringedNoteRightHandTapping();
    ~SetStringedNoteRightHandTapping() override;
};

} // namespace zarn::cmd
