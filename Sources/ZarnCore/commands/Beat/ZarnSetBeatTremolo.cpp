// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatTremolo.h>

namespace zarn::cmd {

SetBeatTremolo::SetBeatTremolo()
    : SetMark("zarn::cmd::SetBeatTremolo::init", QStringLiteral("SetBeatTremolo"))
{
}
SetBeatTremolo::~SetBeatTremolo() = default;

} // namespace zarn::cmd
