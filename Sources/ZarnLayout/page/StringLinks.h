// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

namespace zarn::engraving {

/// Draws hammer-ons, pull-offs and slides between the numbers or heads of a row.
void addStringLinks(RowDraft &row, const SystemDraft &draft);

} // namespace zarn::engraving
