// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetAutoAccentuation.h>

namespace zarn::cmd {

SetAutoAccentuation::SetAutoAccentuation() : SetTrackSwitch(QStringLiteral("SetAutoAccentuation"))
{
}
SetAutoAccentuation::~SetAutoAccentuation() = default;

bool SetAutoAccentuation::init(Score *score, unsigned track, bool isOn)
{
    ZARN_ASSERT_IN("zarn::cmd::SetAutoAccentuation::init", score != NULL);
    return prepareSwitch(score, track, isOn);
}

} // namespace zarn::cmd
