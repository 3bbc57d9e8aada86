// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives fretted notes a vibrato of the hand that stops them.
class ZARNCORE_EXPORT SetStringedNoteVibrato final
    : public SetMark<NoteAttribute::Vibrato, Vibrato, Note> {
public:
    SetStringedNoteVibrato();
    ~SetStringedNoteVibrato() override;
};

} // namespace zarn::cmd
