// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>

#include <map>

namespace zarn::cmd {

/// Gives columns of bars several attributes of the table in one step.
class ZARNCORE_EXPORT SetMasterBarAttributes final : public SetMasterBarsByTable {
public:
    SetMasterBarAttributes();
    ~SetMasterBarAttributes() override;

    /// The bars `first` to `last`; see `SetMasterBarsByTable` for what is refused.
    bool init(Score *score, unsigned first, unsigned last,
              const std::map<MasterBarAttribute, AttributeValue> &values);
};

} // namespace zarn::cmd
