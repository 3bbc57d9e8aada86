// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterTrack/ZarnModifyDirections.h>

namespace zarn::cmd {

/// Puts a direction at a bar, from where it was, or takes it away. A score has one of each.
class ZARNCORE_EXPORT SetBarDirection final : public ModifyDirections {
public:
    SetBarDirection();
    ~SetBarDirection() override;

    /// -1 takes the direction away. False for a bar that is not there, and for no direction.
    bool init(Score *score, DirectionMark mark, int bar);

private:
    void place(MasterTrack::DirectionSlots &directions) const override;
    bool isPossible() const;

    DirectionMark _mark = DirectionMark::NoDirection;
    int _bar = -1;
};

} // namespace zarn::cmd
