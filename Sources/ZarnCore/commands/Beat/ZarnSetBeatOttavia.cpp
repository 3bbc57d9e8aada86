// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatOttavia.h>

namespace zarn::cmd {

SetBeatOttavia::SetBeatOttavia()
    : SetMark("zarn::cmd::SetBeatOttavia::init", QStringLiteral("SetBeatOttavia"))
{
}
SetBeatOttavia::~SetBeatOttavia() = default;

} // namespace zarn::cmd
