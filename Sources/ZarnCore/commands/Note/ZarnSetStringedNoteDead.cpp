// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteDead.h>

namespace zarn::cmd {

SetStringedNoteDead::SetStringedNoteDead()
    : SetMark("zarn::cmd::SetStringedNoteDead::init", QStringLiteral("SetStringedNoteDead"))
{
}
SetStringedNoteDead::~SetStringedNoteDead() = default;

} // namespace zarn::cmd
