// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Makes grace notes of beats, or with `None` beats of grace notes. The note value stays as what is
/// drawn; a tremolo and trills go. The beats behind move, nothing fills the bar; fermatas stay at
/// their time, where the note is that the grace note leads to.
class ZARNCORE_EXPORT SetBeatGraceNotes final
    : public SetMark<BeatAttribute::GraceType, GraceType> {
public:
    SetBeatGraceNotes();
    ~SetBeatGraceNotes() override;
};

} // namespace zarn::cmd
