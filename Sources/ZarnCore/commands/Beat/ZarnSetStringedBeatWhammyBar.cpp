// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatWhammyBar.h>

namespace zarn::cmd {

SetStringedBeatWhammyBar::SetStringedBeatWhammyBar()
    : SetMark("zarn::cmd::SetStringedBeatWhammyBar::init",
              QStringLiteral("SetStringedBeatWhammyBar"))
{
}
SetStringedBeatWhammyBar::~SetStringedBeatWhammyBar() = default;

} // namespace zarn::cmd
