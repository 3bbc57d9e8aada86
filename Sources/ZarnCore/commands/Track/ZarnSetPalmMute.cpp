// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetPalmMute.h>

namespace zarn::cmd {

SetPalmMute::SetPalmMute() : SetAttribute(QStringLiteral("SetPalmMute")) { }
SetPalmMute::~SetPalmMute() = default;

bool SetPalmMute::init(Score *score, unsigned track, float strength)
{
    ZARN_ASSERT_IN("zarn::cmd::SetPalmMute::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(static_cast<double>(strength)));
    return strength >= 0 && strength <= 1 && prepare(score, {{track}}, strength);
}

} // namespace zarn::cmd
