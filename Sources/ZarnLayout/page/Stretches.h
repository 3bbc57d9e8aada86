// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

namespace zarn::engraving {

/// Signs that hold over several beats: palm mute, let ring, vibrato, trills, ottavas, barrés,
/// pedals.
void addStretches(RowDraft &row, const SystemDraft &draft);

/// Words, dashes to the end of a stretch, and a hook there.
Inks dashed(const Pen &pen, MarkKind kind, const std::string &words, double left, double right,
            double hook);

} // namespace zarn::engraving
