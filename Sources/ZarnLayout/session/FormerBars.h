// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/EngravedScore.h>

#include <vector>

namespace zarn::engraving {

/// What was shown in the layout before, for as long as the next one is made.
struct FormerBars {
    std::vector<ShownBar> shown;
    std::vector<const ShownColumn *> columns; ///< by shown bar

    void clear()
    {
        shown.clear();
        columns.clear();
    }
};

} // namespace zarn::engraving
