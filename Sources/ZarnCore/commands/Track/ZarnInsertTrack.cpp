// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnInsertTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <utility>

namespace zarn::cmd {

InsertTrack::InsertTrack() : TrackPlacing(QStringLiteral("InsertTrack"), Kind::Inserts) { }
InsertTrack::~InsertTrack() = default;

bool InsertTrack::init(Score *score, unsigned index, std::shared_ptr<Track> track)
{
    ZARN_ASSERT_IN("zarn::cmd::InsertTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(index));
    if (track != nullptr)
        addArg(QStringLiteral("Name"), QString::fromStdString(track->name()));
    return prepareInsertion(score, index, std::move(track));
}

} // namespace zarn::cmd
