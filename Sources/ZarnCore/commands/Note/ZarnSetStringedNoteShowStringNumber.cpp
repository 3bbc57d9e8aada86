// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteShowStringNumber.h>

namespace zarn::cmd {

SetStringedNoteShowStringNumber::SetStringedNoteShowStringNumber()
    : SetMark("zarn::cmd::SetStringedNoteShowStringNumber::init",
              QStringLiteral("SetStringedNoteShowStringNumber"))
{
}
SetStringedNoteShowStringNumber::~SetStringedNoteShowStringNumber() = default;

} // namespace zarn::cmd
