// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Mutes notes of fretted staves with the palm. Lets them ring no more.
class ZARNCORE_EXPORT SetStringedNotePalmMute final
    : public SetMark<NoteAttribute::PalmMute, bool, Note> {
public:
    SetStringedNotePalmMute();
    ~SetStringedNotePalmMute() override;
};

} // namespace zarn::cmd
