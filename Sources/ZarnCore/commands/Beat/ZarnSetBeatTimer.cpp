// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatTimer.h>

namespace zarn::cmd {

SetBeatTimer::SetBeatTimer()
    : SetMark("zarn::cmd::SetBeatTimer::init", QStringLiteral("SetBeatTimer"))
{
}
SetBeatTimer::~SetBeatTimer() = default;

} // namespace zarn::cmd
