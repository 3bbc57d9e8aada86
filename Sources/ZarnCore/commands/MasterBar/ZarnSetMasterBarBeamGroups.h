// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>

namespace zarn::cmd {

/// Says how the beams of bars are grouped; without groups the meter does.
class ZARNCORE_EXPORT SetMasterBarBeamGroups final : public SetMasterBarsByTable {
public:
    SetMasterBarBeamGroups();
    ~SetMasterBarBeamGroups() override;

    /// The bars `first` to `last`. False for bars that are not there, and when the groups do not
    /// fill each of them.
    bool init(Score *score, unsigned first, unsigned last, const BeamGroups &groups);
};

} // namespace zarn::cmd
