// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnRemoveTrack.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

RemoveTrack::RemoveTrack() : TrackPlacing(QStringLiteral("RemoveTrack"), Kind::Removes) { }
RemoveTrack::~RemoveTrack() = default;

bool RemoveTrack::init(Score *score, unsigned index)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(index));
    return prepareRemoval(score, index);
}

} // namespace zarn::cmd
