// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteVibrato.h>

namespace zarn::cmd {

SetStringedNoteVibrato::SetStringedNoteVibrato()
    : SetMark("zarn::cmd::SetStringedNoteVibrato::init", QStringLiteral("SetStringedNoteVibrato"))
{
}
SetStringedNoteVibrato::~SetStringedNoteVibrato() = default;

} // namespace zarn::cmd
