// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnSwapBars.h>

namespace zarn::cmd {

/// A part of other commands: bars of several staves, or whole columns, in the place of others.
/// Whether that place is there is seen when it runs.
class SwapColumns final : public SwapBars {
public:
    SwapColumns() : SwapBars(QStringLiteral("SwapColumns")) { }

    /// Bars alone.
    bool init(Score *score, std::vector<BarStretch> stretches)
    {
        return prepare(score, std::move(stretches));
    }

    /// Master bars with a stretch for each staff.
    bool init(Score *score, std::vector<BarStretch> stretches, unsigned first,
              MasterTrack::MasterBars masterBars)
    {
        return prepareColumns(score, std::move(stretches), first, std::move(masterBars));
    }
};

} // namespace zarn::cmd
