// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteBend.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

namespace zarn::cmd {

namespace {

/// Whether the note that a note is tied to ends bent.
bool continuesBend(const Beat &beat, const Note &note)
{
    const auto voice = note.isTied() ? beat.parentVoice() : nullptr;
    const auto before = voice ? beatInFrontOfJoint(*voice, beat.index()) : nullptr;
    if (!before)
        return false;
    for (const auto &other : before->notes())
        if (other->isTieOrigin() && sameLocation(*other, note) && !other->bend().curve.isEmpty())
            return other->bend().curve.points().back().value != 0;
    return false;
}

} // namespace

SetStringedNoteBend::SetStringedNoteBend() : SetByTable(QStringLiteral("SetStringedNoteBend")) { }
SetStringedNoteBend::~SetStringedNoteBend() = default;

bool SetStringedNoteBend::init(Score *score, const ScoreModelRange &range, const Bend &bend)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteBend::init", score != NULL);
    return prepare(score, range, {{NoteAttribute::Bend, bend}});
}

bool SetStringedNoteBend::takes(const MarkedPlace &place, const Beat &beat, const Note &note) const
{
    const BendType type = given()[0].value.to<Bend>().type;
    const bool continues = type == BendType::HoldBend || type == BendType::Release;
    return SetByTable::takes(place, beat, note) && (!continues || continuesBend(beat, note));
}

} // namespace zarn::cmd
