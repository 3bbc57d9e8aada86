// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetPlayingStyle.h>

namespace zarn::cmd {

SetPlayingStyle::SetPlayingStyle() : SetAttribute(QStringLiteral("SetPlayingStyle")) { }
SetPlayingStyle::~SetPlayingStyle() = default;

bool SetPlayingStyle::init(Score *score, unsigned track, PlayingStyle style)
{
    ZARN_ASSERT_IN("zarn::cmd::SetPlayingStyle::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"), QString::fromStdString(playingStyleToString(style)));
    return style <= PlayingStyle::DrumKitHotRod && prepare(score, {track}, style);
}

} // namespace zarn::cmd
