// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Words over the beats of a row, with dashes as far as they hold.
void addWords(RowDraft &row, const SystemDraft &draft);

/// The same under the beats, to be placed with the dynamics, whose line they share.
SideItems wordsBelow(const RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
