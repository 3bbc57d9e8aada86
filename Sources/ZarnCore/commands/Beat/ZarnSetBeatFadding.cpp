// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatFadding.h>

namespace zarn::cmd {

SetBeatFadding::SetBeatFadding()
    : SetMark("zarn::cmd::SetBeatFadding::init", QStringLiteral("SetBeatFadding"))
{
}
SetBeatFadding::~SetBeatFadding() = default;

} // namespace zarn::cmd
