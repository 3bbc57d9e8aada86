// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnSwapBars.h>

namespace zarn::cmd {

/// Puts prepared bars in the place of bars of one staff, as they are: the means for edits of music
/// that no other command does. Undo puts the very bars back that were there. See `SwapBars` for the
/// events.
class ZARNCORE_EXPORT ModifyBarRange final : public SwapBars {
public:
    ModifyBarRange();
    ~ModifyBarRange() override;

    /// Takes the bars over, the first for the bar `first`. False for no bars, for one that is null,
    /// twice among them or part of a staff, for a staff that is not there, and past its end.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, Staff::Bars bars);
};

} // namespace zarn::cmd
