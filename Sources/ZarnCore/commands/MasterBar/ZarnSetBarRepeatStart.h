// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnSetPlayOrder.h>

namespace zarn::cmd {

/// Sets whether a repeat starts with a bar. Brings the play list up to date.
class ZARNCORE_EXPORT SetBarRepeatStart final
    : public SetPlayOrder<&MasterBar::isRepeatStart, &MasterBar::setRepeatStart,
                          evt::MasterBarRepeat> {
public:
    SetBarRepeatStart();
    ~SetBarRepeatStart() override;

    /// False for a bar that is not there.
    bool init(Score *score, unsigned bar, bool isRepeatStart);
};

} // namespace zarn::cmd
