// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteAntiAccent.h>

namespace zarn::cmd {

SetNoteAntiAccent::SetNoteAntiAccent()
    : SetMark("zarn::cmd::SetNoteAntiAccent::init", QStringLiteral("SetNoteAntiAccent"))
{
}
SetNoteAntiAccent::~SetNoteAntiAccent() = default;

} // namespace zarn::cmd
