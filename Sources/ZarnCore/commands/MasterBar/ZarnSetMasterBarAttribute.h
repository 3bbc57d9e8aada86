// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>

namespace zarn::cmd {

/// Gives columns of bars any attribute of the table. Does what the command of the attribute does.
class ZARNCORE_EXPORT SetMasterBarAttribute final : public SetMasterBarsByTable {
public:
    SetMasterBarAttribute();
    ~SetMasterBarAttribute() override;

    /// The bars `first` to `last`; see `SetMasterBarsByTable` for what is refused.
    bool init(Score *score, unsigned first, unsigned last, MasterBarAttribute id,
              const AttributeValue &value);
};

} // namespace zarn::cmd
