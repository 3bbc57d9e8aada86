// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetEach.h>

#include <vector>

namespace zarn::cmd {

/// Sets the widths of columns among the others of their systems, in the full score.
class ZARNCORE_EXPORT SetMasterBarLayoutRatios final
    : public SetEach<MasterBarPlaces<evt::BarLayoutRatiosChanged>, &MasterBar::layoutRatio,
                     &MasterBar::setLayoutRatio> {
public:
    SetMasterBarLayoutRatios();
    ~SetMasterBarLayoutRatios() override;

    /// One width for each bar from `first` on, 1 for what its notes ask for. False for no widths
    /// or more than there are bars, and for one outside 0.1 to 10.
    bool init(Score *score, unsigned first, const std::vector<float> &ratios);

private:
    std::optional<float> next(std::size_t number, const MasterBar &bar) const override;

    std::vector<float> _ratios;
};

} // namespace zarn::cmd
