// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetAutoBrush.h>

namespace zarn::cmd {

SetAutoBrush::SetAutoBrush() : SetTrackSwitch(QStringLiteral("SetAutoBrush")) { }
SetAutoBrush::~SetAutoBrush() = default;

bool SetAutoBrush::init(Score *score, unsigned track, bool isOn)
{
    ZARN_ASSERT_IN("zarn::cmd::SetAutoBrush::init", score != NULL);
    return prepareSwitch(score, track, isOn);
}

} // namespace zarn::cmd
