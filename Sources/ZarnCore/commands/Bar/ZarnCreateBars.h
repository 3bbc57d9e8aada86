// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnColumnChanges.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnBarColumns.h>

#include <optional>

namespace zarn::cmd {

/// Inserts empty bars, in every staff of every track. Sends `AddBars`; undo sends `RemoveBars`;
/// both are followed by what `ColumnChanges` tells.
class ZARNCORE_EXPORT CreateBars final : public ScoreCommand {
public:
    CreateBars();
    ~CreateBars() override;

    /// `count` bars in front of the bar `index`, or at the end. False for an index past the end,
    /// for no bars, and for more than `MasterTrack::MaxBars` in all.
    bool init(Score *score, unsigned index, unsigned count);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;

    unsigned _index = 0;
    unsigned _count = 0;
    BarColumnSurroundings _surroundings; ///< what the insertion changed beside the new bars
    std::optional<BarColumns> _undone;   ///< the bars, while they are out of the model
    ColumnChanges _changes;
};

} // namespace zarn::cmd
