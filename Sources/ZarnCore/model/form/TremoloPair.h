// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class Beat;

/// Whether a tremolo joins two neighbours of a voice to notes that last together as long as one of
/// them alone: the ratio that halves them is no tuplet, and nothing is to be drawn of it.
bool isTremoloPair(const Beat &first, const Beat &second) noexcept;

} // namespace zarn
