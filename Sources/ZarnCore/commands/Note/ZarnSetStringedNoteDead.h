// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Makes dead notes of fretted notes: an x; pitch and fret stay. Takes bend, harmonic, trill and
/// ringing off.
class ZARNCORE_EXPORT SetStringedNoteDead final : public SetMark<NoteAttribute::Dead, bool, Note> {
public:
    SetStringedNoteDead();
    ~SetStringedNoteDead() override;
};

} // namespace zarn::cmd
