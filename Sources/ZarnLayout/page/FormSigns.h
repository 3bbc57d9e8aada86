// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// What belongs to the whole score, over the first row: tempos, sections, endings, directions, how
/// eighths are swung; and fermatas over all rows.
void addFormSigns(SystemDraft &draft);
void addFermatas(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
