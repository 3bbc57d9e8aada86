// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackShortName.h>

namespace zarn::cmd {

SetTrackShortName::SetTrackShortName() : SetAttribute(QStringLiteral("SetTrackShortName")) { }
SetTrackShortName::~SetTrackShortName() = default;

bool SetTrackShortName::init(Score *score, unsigned track, const QString &name)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackShortName::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Name"), name);
    return prepare(score, {track}, name.toStdString());
}

} // namespace zarn::cmd
