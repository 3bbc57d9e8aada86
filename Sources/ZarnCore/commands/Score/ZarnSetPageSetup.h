// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/layout/ZarnPageSetup.h>

namespace zarn::cmd {

/// Sets the sheet on which the score is laid out. Sends `ScoreViewLayoutChanged` for each view.
class ZARNCORE_EXPORT SetPageSetup final : public ScoreCommand {
public:
    /// The smallest and the largest lengths that are taken, in micrometres.
    static constexpr int smallestSheet = 20000;
    static constexpr int largestSheet = 2000000;
    static constexpr int smallestStaffSpace = 500;
    static constexpr int largestStaffSpace = 10000;

    SetPageSetup();
    ~SetPageSetup() override;

    /// False for a sheet or a staff space that is too small or too large, and for margins that are
    /// negative or leave less than half of the sheet for music.
    bool init(Score *score, const PageSetup &setup);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    void announce();

    PageSetup _setup;
    PageSetup _before;
};

} // namespace zarn::cmd
