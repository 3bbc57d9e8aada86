// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::cmd {

/// Sets the time signature of bars. What stands in them is not moved; beam groups that do not fill
/// a bar of it go.
class ZARNCORE_EXPORT SetMasterTimeSignature final : public SetMasterBarsByTable {
public:
    SetMasterTimeSignature();
    ~SetMasterTimeSignature() override;

    /// The bars `first` to `last`. False for bars that are not there, and for a signature that
    /// cannot be written: see `isWritable`.
    bool init(Score *score, unsigned first, unsigned last, const TimeSignature &signature);

    /// 1 to 255 units, of a whole note to a 256th.
    static bool isWritable(const TimeSignature &signature) noexcept;

private:
    static constexpr unsigned smallestUnit = 256;
    static constexpr unsigned mostUnits = 255;
};

} // namespace zarn::cmd
