// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Signs that hold over several beats: palm mute, let ring, vibrato, trills, ottavas, barrés, words
/// with dashes, pedals.
void addStretches(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
