// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws the slurs of a row of notes; those that leave the system by halves.
void addSlurs(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
