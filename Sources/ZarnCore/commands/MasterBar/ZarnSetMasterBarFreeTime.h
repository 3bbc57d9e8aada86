// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets whether bars are in free time, without a meter that counts.
class ZARNCORE_EXPORT SetMasterBarFreeTime final
    : public SetOnMasterBars<&MasterBar::isFreeTime, &MasterBar::setFreeTime,
                             evt::MasterBarFreeTime> {
public:
    SetMasterBarFreeTime();
    ~SetMasterBarFreeTime() override;

    /// The bars `first` to `last`. False for bars that are not there.
    bool init(Score *score, unsigned first, unsigned last, bool isFreeTime);
};

} // namespace zarn::cmd
