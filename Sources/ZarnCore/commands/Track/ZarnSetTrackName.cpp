// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackName.h>

namespace zarn::cmd {

SetTrackName::SetTrackName() : SetAttribute(QStringLiteral("SetTrackName")) { }
SetTrackName::~SetTrackName() = default;

bool SetTrackName::init(Score *score, unsigned track, const QString &name)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackName::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Name"), name);
    return prepare(score, {track}, name.toStdString());
}

} // namespace zarn::cmd
