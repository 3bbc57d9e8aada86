// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatAttributes.h>

namespace zarn::cmd {

SetBeatAttributes::SetBeatAttributes() : SetByTable(QStringLiteral("SetBeatAttributes")) { }
SetBeatAttributes::~SetBeatAttributes() = default;

bool SetBeatAttributes::init(Score *score, const ScoreModelRange &range,
                             const std::map<BeatAttribute, AttributeValue> &values)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatAttributes::init", score != NULL);
    return prepare(score, range, {values.begin(), values.end()}, Recorded::NamesAndValues);
}

} // namespace zarn::cmd
