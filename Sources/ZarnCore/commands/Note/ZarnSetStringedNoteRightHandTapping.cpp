// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteRightHandTapping.h>

namespace zarn::cmd {

SetStringedNoteRightHandTapping::SetStringedNoteRightHandTapping()
    : SetMark("zarn::cmd::SetStringedNoteRightHandTapping::init",
              QStringLiteral("SetStringedNoteRightHandTapping"))
{
}
SetStringedNoteRightHandTapping::~SetStringedNoteRightHandTapping() = default;

} // namespace zarn::cmd
