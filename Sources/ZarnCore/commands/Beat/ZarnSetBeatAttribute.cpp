// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatAttribute.h>

namespace zarn::cmd {

SetBeatAttribute::SetBeatAttribute() : SetByTable(QStringLiteral("SetBeatAttribute")) { }
SetBeatAttribute::~SetBeatAttribute() = default;

bool SetBeatAttribute::init(Score *score, const ScoreModelRange &range, BeatAttribute id,
                            const AttributeValue &value)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatAttribute::init", score != NULL);
    return prepare(score, range, {{id, value}}, Recorded::NamesAndValues);
}

} // namespace zarn::cmd
