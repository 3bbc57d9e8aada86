// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws what stands around the notes of all rows, from the inside out: the table of engravers.
void addRowSigns(SystemDraft &draft);

} // namespace zarn::engraving
