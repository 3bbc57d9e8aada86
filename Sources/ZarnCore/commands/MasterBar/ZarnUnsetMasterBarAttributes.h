// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>

#include <set>

namespace zarn::cmd {

/// Takes attributes off columns of bars. Meter and key have no none.
class ZARNCORE_EXPORT UnsetMasterBarAttributes final : public SetMasterBarsByTable {
public:
    UnsetMasterBarAttributes();
    ~UnsetMasterBarAttributes() override;

    /// The bars `first` to `last`; see `SetMasterBarsByTable` for what is refused.
    bool init(Score *score, unsigned first, unsigned last, const std::set<MasterBarAttribute> &ids);
};

} // namespace zarn::cmd
