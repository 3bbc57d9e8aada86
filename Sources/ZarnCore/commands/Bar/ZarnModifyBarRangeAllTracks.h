// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCompoundCommand.h>
#include <ZarnCore/model/ZarnBarColumns.h>

namespace zarn::cmd {

/// Puts prepared columns, master bars with their bars in every staff, in the place of columns;
/// their number may differ. What stands at columns by their number (automations, directions) stays
/// there, or follows the music behind. Sends what `CreateBars` or `RemoveBars` do for the
/// difference, then what `SwapBars` does.
class ZARNCORE_EXPORT ModifyBarRangeAllTracks final : public CompoundCommand {
public:
    ModifyBarRangeAllTracks();
    ~ModifyBarRangeAllTracks() override;

    /// Takes the master bars and bars of `columns` over; nothing else of it counts. False for no
    /// columns, for blocks that do not fit the tracks and staves, for nodes that are null or part
    /// of a model, for columns `first` to `last` that are not there, and for too many in all.
    bool init(Score *score, unsigned first, unsigned last, BarColumns columns);

private:
    void plan() override;
    bool isPossible() const;

    Score *_target = nullptr;
    unsigned _first = 0;
    unsigned _last = 0;
    unsigned _count = 0;
    std::vector<std::size_t> _staffCounts; ///< of the tracks that the columns fit
    std::unique_ptr<Command> _swap;        ///< until it is a step
};

} // namespace zarn::cmd
