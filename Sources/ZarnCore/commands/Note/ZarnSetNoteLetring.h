// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Lets notes ring. Takes palm muting off, and makes dead notes sound.
class ZARNCORE_EXPORT SetNoteLetring final : public SetMark<NoteAttribute::LetRing, bool, Note> {
public:
    SetNoteLetring();
    ~SetNoteLetring() override;
};

} // namespace zarn::cmd
