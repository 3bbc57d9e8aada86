// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/EngravedScore.h>

#include <vector>

namespace zarn::engraving {

/// How the dashes behind words that begin or end in a bar leave it, by staff.
std::vector<OpenWords> wordsLinesOf(const BarColumn &bar);

/// Goes on behind a bar with what leads to it.
void passBar(OpenLines &open, const ShownColumn &bar);

} // namespace zarn::engraving
