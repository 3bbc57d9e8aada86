// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatTied.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::cmd {

SetBeatTied::SetBeatTied() : TieBeats(QStringLiteral("SetBeatTied")) { }
SetBeatTied::~SetBeatTied() = default;

bool SetBeatTied::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatTied::init", score != NULL);
    return prepare(score, range, checked);
}

bool SetBeatTied::isMeant(const MarkedPlace &, const Note &) const
{
    return true;
}

bool SetBeatTied::isCopied(const MarkedPlace &, const Beat &beat, const Note &) const
{
    return !beat.hasNotes() && !beat.isGrace();
}

} // namespace zarn::cmd
