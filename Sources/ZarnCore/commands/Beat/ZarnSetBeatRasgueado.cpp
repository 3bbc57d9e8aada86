// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatRasgueado.h>

namespace zarn::cmd {

SetBeatRasgueado::SetBeatRasgueado()
    : SetMark("zarn::cmd::SetBeatRasgueado::init", QStringLiteral("SetBeatRasgueado"))
{
}
SetBeatRasgueado::~SetBeatRasgueado() = default;

} // namespace zarn::cmd
