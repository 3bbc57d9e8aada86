// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackIcon.h>

namespace zarn::cmd {

SetTrackIcon::SetTrackIcon() : SetAttribute(QStringLiteral("SetTrackIcon")) { }
SetTrackIcon::~SetTrackIcon() = default;

bool SetTrackIcon::init(Score *score, unsigned track, ZarnIconID icon)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackIcon::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"), QString::fromStdString(iconIDToString(icon)));
    const bool isKnown = icon >= ZarnIconID::SteelGuitar && icon <= ZarnIconID::ElectricGuitarTele;
    return isKnown && prepare(score, {track}, icon);
}

} // namespace zarn::cmd
