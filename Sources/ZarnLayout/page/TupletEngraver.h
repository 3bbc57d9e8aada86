// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Numbers and brackets of tuplets: the number alone where one beam shows what belongs together.
void addTuplets(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
