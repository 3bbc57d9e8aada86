// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatDynamic.h>

namespace zarn::cmd {

SetBeatDynamic::SetBeatDynamic()
    : SetMark("zarn::cmd::SetBeatDynamic::init", QStringLiteral("SetBeatDynamic"))
{
}
SetBeatDynamic::~SetBeatDynamic() = default;

} // namespace zarn::cmd
