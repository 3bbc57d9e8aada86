// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Bends of notes: on a tablature from their strings up, else above the staff.
void addBends(RowDraft &row, const SystemDraft &draft);

/// What the whammy bar does, outside everything that leads from note to note.
void addWhammyBars(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
