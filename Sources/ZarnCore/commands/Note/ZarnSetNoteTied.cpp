// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteTied.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/NotePlaces.h>

namespace zarn::cmd {

SetNoteTied::SetNoteTied() : TieBeats(QStringLiteral("SetNoteTied")) { }
SetNoteTied::~SetNoteTied() = default;

bool SetNoteTied::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteTied::init", score != NULL);
    return prepare(score, range, checked);
}

bool SetNoteTied::isMeant(const MarkedPlace &place, const Note &note) const
{
    return NotePlaces(range()).has(place, note);
}

bool SetNoteTied::isCopied(const MarkedPlace &place, const Beat &beat, const Note &held) const
{
    const bool isOnePlace = !range().isMultiSelection() && !range().isMultiVoice();
    return isOnePlace && place.isFretted && !beat.isGrace() && NotePlaces(range()).has(place, held);
}

} // namespace zarn::cmd
