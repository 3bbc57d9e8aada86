// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

namespace zarn {

/// Base of commands that place directions. Sends `MasterBarDirection` for each direction that
/// moved, then `RequestMasterBarPlaylistUpdate`, and brings the play list up to date.
class ZARNCORE_EXPORT ModifyDirections : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;
    ~ModifyDirections() override;

    /// Changes the slots as they are found; raises when the bar is not there any more.
    virtual void place(MasterTrack::DirectionSlots &directions) const = 0;

    bool hasBar(int bar) const;

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    void write(const MasterTrack::DirectionSlots &directions);
    void announce(const MasterTrack::DirectionSlots &before,
                  const MasterTrack::DirectionSlots &after);

    MasterTrack::DirectionSlots _before{};
    MasterTrack::DirectionSlots _after{};
};

} // namespace zarn
