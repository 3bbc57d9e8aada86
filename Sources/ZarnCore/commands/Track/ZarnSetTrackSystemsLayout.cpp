// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackSystemsLayout.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/NumbersText.h>

namespace zarn::cmd {

SetTrackSystemsLayout::SetTrackSystemsLayout()
    : ChangeSystems(QStringLiteral("SetTrackSystemsLayout"))
{
}
SetTrackSystemsLayout::~SetTrackSystemsLayout() = default;

bool SetTrackSystemsLayout::init(Score *score, unsigned track, const std::vector<int> &systems)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackSystemsLayout::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), numbersText(systems));
    return prepare(score, static_cast<int>(track), systems, std::nullopt);
}

} // namespace zarn::cmd
