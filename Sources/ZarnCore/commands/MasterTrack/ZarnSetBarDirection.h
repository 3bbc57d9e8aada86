// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterTrack/ZarnModifyDirections.h>

namespace zarn::cmd {

/// Puts a direction at a bar, from the one that its slot names, or takes it away there. Further
/// ones of the kind stay where they are; see `MasterBar::furtherDirections`.
class ZARNCORE_EXPORT SetBarDirection final : public ModifyDirections {
public:
    SetBarDirection();
    ~SetBarDirection() override;

    /// -1 takes the direction away. False for a bar that is not there, and for no direction.
    bool init(Score *score, DirectionMark mark, int bar);

private:
    void place(Directions &directions) const override;
    bool isPossible() const;

    DirectionMark _mark = DirectionMark::NoDirection;
};

} // namespace zarn::cmd
