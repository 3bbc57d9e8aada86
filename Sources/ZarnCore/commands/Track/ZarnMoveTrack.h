// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/layout/ZarnTrackGroup.h>

namespace zarn::cmd {

/// Gives a track another index among the tracks; those that it passes make room, and the groups of
/// tracks follow (see `groupsAfterMove`). Sends a `SwapTrack` for each track that it passes, in
/// order.
class ZARNCORE_EXPORT MoveTrack final : public ScoreCommand {
public:
    MoveTrack();
    ~MoveTrack() override;

    /// `to` is the index that the track has in the end. False when it stays where it is, and for
    /// an index past the last track.
    bool init(Score *score, unsigned from, unsigned to);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;
    void announceUpTo(int index);

    unsigned _from = 0;
    unsigned _to = 0;
    TrackGroups _groupsBefore;
    int _announced = 0; ///< where listeners know the track to be
};

} // namespace zarn::cmd
