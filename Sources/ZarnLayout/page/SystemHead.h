// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Room for names, brackets and braces in front of the staves of the first system, or of others.
double indentOf(const EngravedScore &score, const Pen &pen, bool isFirst);

/// Draws what stands in front of the staves: the line that joins them, brackets, braces, names.
void addSystemHead(SystemDraft &draft);

} // namespace zarn::engraving
