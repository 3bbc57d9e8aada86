// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnSetPlayOrder.h>

namespace zarn::cmd {

/// Sets whether a movement begins with a bar. Brings the play list up to date.
class ZARNCORE_EXPORT SetMasterBarMovementStart final
    : public SetPlayOrder<&MasterBar::isMovementStart, &MasterBar::setMovementStart,
                          evt::MasterBarAttribute> {
public:
    SetMasterBarMovementStart();
    ~SetMasterBarMovementStart() override;

    /// False for a bar that is not there.
    bool init(Score *score, unsigned bar, bool isMovementStart);
};

} // namespace zarn::cmd
