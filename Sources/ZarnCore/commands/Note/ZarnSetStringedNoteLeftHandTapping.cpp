// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteLeftHandTapping.h>

namespace zarn::cmd {

SetStringedNoteLeftHandTapping::SetStringedNoteLeftHandTapping()
    : SetMark("zarn::cmd::SetStringedNoteLeftHandTapping::init",
              QStringLiteral("SetStringedNoteLeftHandTapping"))
{
}
SetStringedNoteLeftHandTapping::~SetStringedNoteLeftHandTapping() = default;

} // namespace zarn::cmd
