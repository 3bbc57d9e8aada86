// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetBarsByTable.h>

namespace zarn::cmd {

/// Gives bars of a staff any attribute of the table. Does what the command of the attribute does.
class ZARNCORE_EXPORT SetBarAttribute final : public SetBarsByTable {
public:
    SetBarAttribute();
    ~SetBarAttribute() override;

    /// The bars `first` to `last`; see `SetBarsByTable` for what is refused.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
              BarAttribute id, const AttributeValue &value);
};

} // namespace zarn::cmd
