// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Has the left hand tap fretted notes. Takes the tapping of the right hand and the pick stroke
/// off.
class ZARNCORE_EXPORT SetStringedNoteLeftHandTapping final
    : public SetMark<NoteAttribute::LeftTap, bool, Note> {
public:
    SetStringedNoteLeftHandTapping();
    ~SetStringedNoteLeftHandTapping() override;
};

} // namespace zarn::cmd
