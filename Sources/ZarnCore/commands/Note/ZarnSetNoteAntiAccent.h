// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Makes ghost notes, in three strengths. Takes accents off.
class ZARNCORE_EXPORT SetNoteAntiAccent final
    : public SetMark<NoteAttribute::AntiAccent, AntiAccent, Note> {
public:
    SetNoteAntiAccent();
    ~SetNoteAntiAccent() override;
};

} // namespace zarn::cmd
