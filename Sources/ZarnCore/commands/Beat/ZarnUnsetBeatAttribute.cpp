// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnUnsetBeatAttribute.h>

namespace zarn::cmd {

UnsetBeatAttribute::UnsetBeatAttribute() : SetByTable(QStringLiteral("UnsetBeatAttribute")) { }
UnsetBeatAttribute::~UnsetBeatAttribute() = default;

bool UnsetBeatAttribute::init(Score *score, const ScoreModelRange &range, BeatAttribute id)
{
    ZARN_ASSERT_IN("zarn::cmd::UnsetBeatAttribute::init", score != NULL);
    return isAttribute(id) && id != BeatAttribute::Rhythm
        && prepare(score, range, {{id, defaultOf(rowOf(id))}}, Recorded::NamesAndValues);
}

} // namespace zarn::cmd
