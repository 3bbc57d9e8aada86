// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatSlashed.h>

namespace zarn::cmd {

SetBeatSlashed::SetBeatSlashed()
    : SetMark("zarn::cmd::SetBeatSlashed::init", QStringLiteral("SetBeatSlashed"))
{
}
SetBeatSlashed::~SetBeatSlashed() = default;

} // namespace zarn::cmd
