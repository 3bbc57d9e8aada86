// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives notes a turn or a mordent; the form without a switch. Takes a trill off.
class ZARNCORE_EXPORT SetNoteOrnement final
    : public SetMark<NoteAttribute::Ornament, Ornament, Note> {
public:
    SetNoteOrnement();
    ~SetNoteOrnement() override;
};

} // namespace zarn::cmd
