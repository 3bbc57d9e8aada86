// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatVibrato.h>

namespace zarn::cmd {

SetStringedBeatVibrato::SetStringedBeatVibrato()
    : SetMark("zarn::cmd::SetStringedBeatVibrato::init", QStringLiteral("SetStringedBeatVibrato"))
{
}
SetStringedBeatVibrato::~SetStringedBeatVibrato() = default;

} // namespace zarn::cmd
