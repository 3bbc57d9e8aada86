// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnLetRingAssistant.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

namespace zarn::cmd {

LetRingAssistant::LetRingAssistant()
    : PassageAssistant("zarn::cmd::LetRingAssistant::init", QStringLiteral("LetRingAssistant"),
                       NoteAttribute::LetRing)
{
}
LetRingAssistant::~LetRingAssistant() = default;

/// A tie strikes no string.
bool LetRingAssistant::isFit(const Beat &beat, const Note &note) const
{
    if (note.isDead())
        return false;
    const auto voice = beat.parentVoice();
    const auto next = voice != nullptr ? beatBehindJoint(*voice, beat.index() + 1) : nullptr;
    const auto struck = next != nullptr ? next->noteOnString(note.string()) : nullptr;
    return struck == nullptr || struck->isTied();
}

} // namespace zarn::cmd
