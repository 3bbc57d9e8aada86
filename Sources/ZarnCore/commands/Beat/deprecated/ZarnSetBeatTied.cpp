// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/deprecated/ZarnSetBeatTied.h>

namespace zarn::cmd::deprecated {

SetBeatTied::SetBeatTied() : TieExistingNotes(QStringLiteral("SetBeatTied")) { }
SetBeatTied::~SetBeatTied() = default;

bool SetBeatTied::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::deprecated::SetBeatTied::init", score != NULL);
    ScoreModelRange beats = range;
    beats.setMultiSelection(true);
    return prepare(score, beats, checked);
}

} // namespace zarn::cmd::deprecated
