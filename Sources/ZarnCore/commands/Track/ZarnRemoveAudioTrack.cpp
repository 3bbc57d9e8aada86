// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnRemoveAudioTrack.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

RemoveAudioTrack::RemoveAudioTrack()
    : AudioTrackPlacing(QStringLiteral("RemoveAudioTrack"), Kind::Removes)
{
}
RemoveAudioTrack::~RemoveAudioTrack() = default;

bool RemoveAudioTrack::init(Score *score, unsigned index)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveAudioTrack::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(index));
    return prepareRemoval(score, index);
}

} // namespace zarn::cmd
