// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetBarsByTable.h>

namespace zarn::cmd {

/// Makes bars repeat the one or the two bars before, or with no mark shows their own notes again,
/// which stay all the while.
class ZARNCORE_EXPORT SetBarSimileMark final : public SetBarsByTable {
public:
    SetBarSimileMark();
    ~SetBarSimileMark() override;

    /// The bars `first` to `last`; see `SetBarsByTable` for what is refused.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
              SimileMark mark);
};

} // namespace zarn::cmd
