// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetFixedLayout.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetFixedLayout::SetFixedLayout() : ChangeSystems(QStringLiteral("SetFixedLayout")) { }
SetFixedLayout::~SetFixedLayout() = default;

bool SetFixedLayout::init(Score *score, int track, unsigned bars)
{
    ZARN_ASSERT_IN("zarn::cmd::SetFixedLayout::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(bars));
    return bars >= 1 && bars <= MostBarsOfAll && prepare(score, track, {}, bars);
}

} // namespace zarn::cmd
