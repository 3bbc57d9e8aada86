// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetOneChannelPerString.h>

namespace zarn::cmd {

SetOneChannelPerString::SetOneChannelPerString()
    : SetTrackSwitch(QStringLiteral("SetOneChannelPerString"))
{
}
SetOneChannelPerString::~SetOneChannelPerString() = default;

bool SetOneChannelPerString::init(Score *score, unsigned track, bool isOn)
{
    ZARN_ASSERT_IN("zarn::cmd::SetOneChannelPerString::init", score != NULL);
    return prepareSwitch(score, track, isOn);
}

} // namespace zarn::cmd
