// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatPickStroke.h>

namespace zarn::cmd {

SetBeatPickStroke::SetBeatPickStroke()
    : SetMark("zarn::cmd::SetBeatPickStroke::init", QStringLiteral("SetBeatPickStroke"))
{
}
SetBeatPickStroke::~SetBeatPickStroke() = default;

} // namespace zarn::cmd
