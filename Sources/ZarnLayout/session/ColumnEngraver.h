// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/session/ScoreSource.h>

namespace zarn::engraving {

/// Engraves a bar in all rows, or the sign for bars of rest; and finds how wide it wants to be,
/// unless that is known, which takes less time.
std::shared_ptr<const EngravedRows> engraveColumn(const ScoreSource &score, const ShownBar &bars,
                                                  const Pen &pen, bool isSpaced = true);

} // namespace zarn::engraving
