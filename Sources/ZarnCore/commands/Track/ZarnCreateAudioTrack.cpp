// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnCreateAudioTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnAudioTrack.h>

#include <utility>

namespace zarn::cmd {

CreateAudioTrack::CreateAudioTrack()
    : AudioTrackPlacing(QStringLiteral("CreateAudioTrack"), Kind::Inserts)
{
}
CreateAudioTrack::~CreateAudioTrack() = default;

bool CreateAudioTrack::init(Score *score, unsigned index, std::shared_ptr<AudioTrack> track)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateAudioTrack::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(index));
    if (track != nullptr)
        addArg(QStringLiteral("Name"), QString::fromStdString(track->name()));
    return prepareInsertion(score, index, std::move(track));
}

} // namespace zarn::cmd
