// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatBassAttack.h>

namespace zarn::cmd {

SetStringedBeatBassAttack::SetStringedBeatBassAttack()
    : SetMark("zarn::cmd::SetStringedBeatBassAttack::init",
              QStringLiteral("SetStringedBeatBassAttack"))
{
}
SetStringedBeatBassAttack::~SetStringedBeatBassAttack() = default;

} // namespace zarn::cmd
