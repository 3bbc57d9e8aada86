// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// What is sung below the row: syllables, the hyphens between those of a word, and the lines on
/// which a last syllable is held. Hyphens and lines lead over the ends of systems.
void addLyrics(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
