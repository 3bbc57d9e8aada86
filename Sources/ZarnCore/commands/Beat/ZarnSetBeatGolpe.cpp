// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatGolpe.h>

namespace zarn::cmd {

SetBeatGolpe::SetBeatGolpe()
    : SetMark("zarn::cmd::SetBeatGolpe::init", QStringLiteral("SetBeatGolpe"))
{
}
SetBeatGolpe::~SetBeatGolpe() = default;

} // namespace zarn::cmd
