// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetLyricsVisible.h>

namespace zarn::cmd {

SetLyricsVisible::SetLyricsVisible() : SetAttribute(QStringLiteral("SetLyricsVisible")) { }
SetLyricsVisible::~SetLyricsVisible() = default;

bool SetLyricsVisible::init(Score *score, unsigned track, unsigned lines)
{
    ZARN_ASSERT_IN("zarn::cmd::SetLyricsVisible::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(lines));
    return lines <= TrackSettings::AllLyrics
        && prepare(score, {track}, static_cast<std::uint8_t>(lines));
}

} // namespace zarn::cmd
