// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetAutoLayout.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetAutoLayout::SetAutoLayout() : ChangeSystems(QStringLiteral("SetAutoLayout")) { }
SetAutoLayout::~SetAutoLayout() = default;

bool SetAutoLayout::init(Score *score, int track)
{
    ZARN_ASSERT_IN("zarn::cmd::SetAutoLayout::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    return prepare(score, track, {}, 0U);
}

} // namespace zarn::cmd
