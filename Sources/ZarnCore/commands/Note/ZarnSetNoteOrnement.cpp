// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteOrnement.h>

namespace zarn::cmd {

SetNoteOrnement::SetNoteOrnement()
    : SetMark("zarn::cmd::SetNoteOrnement::init", QStringLiteral("SetNoteOrnement"))
{
}
SetNoteOrnement::~SetNoteOrnement() = default;

} // namespace zarn::cmd
