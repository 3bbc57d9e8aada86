// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatBarre.h>

namespace zarn::cmd {

SetBeatBarre::SetBeatBarre()
    : SetMark("zarn::cmd::SetBeatBarre::init", QStringLiteral("SetBeatBarre"))
{
}
SetBeatBarre::~SetBeatBarre() = default;

} // namespace zarn::cmd
