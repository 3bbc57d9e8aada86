// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets whether a bar ends with a double bar line.
class ZARNCORE_EXPORT SetMasterBarDoubleBar final
    : public SetOnMasterBars<&MasterBar::hasDoubleBar, &MasterBar::setDoubleBar,
                             evt::MasterBarDoubleBar> {
public:
    SetMasterBarDoubleBar();
    ~SetMasterBarDoubleBar() override;

    /// False for a bar that is not there.
    bool init(Score *score, unsigned bar, bool hasDoubleBar);
};

} // namespace zarn::cmd
