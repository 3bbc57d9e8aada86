// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnColumnChanges.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnBarColumns.h>

#include <optional>

namespace zarn::cmd {

/// Removes bars from every staff of every track, and keeps them for undo. Sends `RemoveBars` and
/// `ModifyBarRangeAllTracks`; undo sends `AddBars` and `ModifyBarRangeAllTracks`; both are
/// followed by what `ColumnChanges` tells.
class ZARNCORE_EXPORT RemoveBars final : public ScoreCommand {
public:
    RemoveBars();
    ~RemoveBars() override;

    /// The bars `first` to `last`, both included. False when there are no such bars.
    bool init(Score *score, unsigned first, unsigned last);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;
    int count() const noexcept { return static_cast<int>(_last - _first + 1); }

    unsigned _first = 0;
    unsigned _last = 0;
    std::optional<BarColumns> _removed;
    ColumnChanges _changes;
};

} // namespace zarn::cmd
