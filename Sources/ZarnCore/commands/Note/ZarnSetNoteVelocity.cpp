// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteVelocity.h>

namespace zarn::cmd {

SetNoteVelocity::SetNoteVelocity()
    : SetMark("zarn::cmd::SetNoteVelocity::init", QStringLiteral("SetNoteVelocity"))
{
}
SetNoteVelocity::~SetNoteVelocity() = default;

} // namespace zarn::cmd
