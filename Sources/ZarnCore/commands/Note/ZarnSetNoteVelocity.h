// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives notes a loudness of their own, 1 to 127, or with 0 leaves it to the dynamic.
class ZARNCORE_EXPORT SetNoteVelocity final
    : public SetMark<NoteAttribute::Velocity, unsigned, Note> {
public:
    SetNoteVelocity();
    ~SetNoteVelocity() override;
};

} // namespace zarn::cmd
