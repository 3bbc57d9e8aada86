// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterTrack/ZarnModifyDirections.h>

#include <set>

namespace zarn::cmd {

/// Sets all directions of a bar: those of the set move here from the bars that their slots name,
/// unless they stand here besides these; others that stood here go.
class ZARNCORE_EXPORT SetBarDirections final : public ModifyDirections {
public:
    SetBarDirections();
    ~SetBarDirections() override;

    /// False for a bar that is not there, and for a set with a mark that is no direction.
    bool init(Score *score, int bar, const std::set<DirectionMark> &marks);

private:
    void place(Directions &directions) const override;

    std::set<DirectionMark> _marks;
};

} // namespace zarn::cmd
