// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/deprecated/ZarnSetNoteTied.h>

namespace zarn::cmd::deprecated {

SetNoteTied::SetNoteTied() : TieExistingNotes(QStringLiteral("SetNoteTied")) { }
SetNoteTied::~SetNoteTied() = default;

bool SetNoteTied::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::deprecated::SetNoteTied::init", score != NULL);
    return prepare(score, range, checked);
}

} // namespace zarn::cmd::deprecated
