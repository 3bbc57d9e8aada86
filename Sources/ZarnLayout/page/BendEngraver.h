// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Bends and what the whammy bar does.
void addBends(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
