// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatGraceNotes.h>

namespace zarn::cmd {

SetBeatGraceNotes::SetBeatGraceNotes()
    : SetMark("zarn::cmd::SetBeatGraceNotes::init", QStringLiteral("SetBeatGraceNotes"))
{
}
SetBeatGraceNotes::~SetBeatGraceNotes() = default;

} // namespace zarn::cmd
