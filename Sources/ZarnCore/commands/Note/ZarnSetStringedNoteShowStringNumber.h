// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Shows the number of the string of fretted notes in a circle.
class ZARNCORE_EXPORT SetStringedNoteShowStringNumber final
    : public SetMark<NoteAttribute::ShowString, bool, Note> {
public:
    SetStringedNoteShowStringNumber();
    ~SetStringedNoteShowStringNumber() override;
};

} // namespace zarn::cmd
