// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackColor.h>

namespace zarn::cmd {

SetTrackColor::SetTrackColor() : SetAttribute(QStringLiteral("SetTrackColor")) { }
SetTrackColor::~SetTrackColor() = default;

bool SetTrackColor::init(Score *score, unsigned track, std::uint32_t color)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackColor::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QStringLiteral("#%0").arg(color, 6, 16, QLatin1Char('0')));
    constexpr std::uint32_t white = 0xFFFFFF;
    return color <= white && prepare(score, {track}, color);
}

} // namespace zarn::cmd
