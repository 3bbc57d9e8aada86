// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNotePalmMute.h>

namespace zarn::cmd {

SetStringedNotePalmMute::SetStringedNotePalmMute()
    : SetMark("zarn::cmd::SetStringedNotePalmMute::init", QStringLiteral("SetStringedNotePalmMute"))
{
}
SetStringedNotePalmMute::~SetStringedNotePalmMute() = default;

} // namespace zarn::cmd
