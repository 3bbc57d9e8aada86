// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetLetRingThroughout.h>

namespace zarn::cmd {

SetLetRingThroughout::SetLetRingThroughout()
    : SetTrackSwitch(QStringLiteral("SetLetRingThroughout"))
{
}
SetLetRingThroughout::~SetLetRingThroughout() = default;

bool SetLetRingThroughout::init(Score *score, unsigned track, bool isOn)
{
    ZARN_ASSERT_IN("zarn::cmd::SetLetRingThroughout::init", score != NULL);
    return prepareSwitch(score, track, isOn);
}

} // namespace zarn::cmd
