// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackPlayback.h>

namespace zarn::cmd {

SetTrackPlayback::SetTrackPlayback() : SetAttribute(QStringLiteral("SetTrackPlayback")) { }
SetTrackPlayback::~SetTrackPlayback() = default;

bool SetTrackPlayback::init(Score *score, unsigned track, zarn::TrackPlayback playback)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackPlayback::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"), QString::fromStdString(trackPlaybackToString(playback)));
    return playback <= zarn::TrackPlayback::Solo && prepare(score, {track}, playback);
}

} // namespace zarn::cmd
