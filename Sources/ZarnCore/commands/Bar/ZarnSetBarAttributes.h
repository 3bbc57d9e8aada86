// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetBarsByTable.h>

#include <map>

namespace zarn::cmd {

/// Gives bars of a staff several attributes of the table in one step.
class ZARNCORE_EXPORT SetBarAttributes final : public SetBarsByTable {
public:
    SetBarAttributes();
    ~SetBarAttributes() override;

    /// The bars `first` to `last`; see `SetBarsByTable` for what is refused.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
              const std::map<BarAttribute, AttributeValue> &values);
};

} // namespace zarn::cmd
