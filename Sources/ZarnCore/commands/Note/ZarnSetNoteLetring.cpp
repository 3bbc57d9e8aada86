// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteLetring.h>

namespace zarn::cmd {

SetNoteLetring::SetNoteLetring()
    : SetMark("zarn::cmd::SetNoteLetring::init", QStringLiteral("SetNoteLetring"))
{
}
SetNoteLetring::~SetNoteLetring() = default;

} // namespace zarn::cmd
