// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <cstdint>

namespace zarn {

/// Base of commands that place directions. Sends `MasterBarDirection` for each slot that has
/// another bar, `MasterBarAttribute` where a bar has other directions besides, then
/// `RequestMasterBarPlaylistUpdate`, and brings the play list up to date.
class ZARNCORE_EXPORT ModifyDirections : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;
    ~ModifyDirections() override;

    struct Directions {
        MasterTrack::DirectionSlots barOfKind{};
        std::uint32_t further = 0; ///< of the bar of the command
    };

    /// Changes the directions as they are found; raises when the bar is not there any more.
    virtual void place(Directions &directions) const = 0;

    /// -1 for none.
    void setBar(int bar) noexcept { _bar = bar; }
    int bar() const noexcept { return _bar; }
    bool hasBar() const;

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    void write(const Directions &directions);
    void announce(const Directions &before, const Directions &after);

    int _bar = -1;
    Directions _before;
    Directions _after;
};

} // namespace zarn
