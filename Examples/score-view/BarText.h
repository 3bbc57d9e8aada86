// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {
class Bar;
class MasterBar;
} // namespace zarn

/// What all staves share of a bar: "4/4 |: [Verse]".
std::string textOf(const zarn::MasterBar &column);

/// The music of a bar, beat by beat with lengths in quarters: "E2:1 [G3 B3]:1/2 r:2". Voices are
/// parted by "&".
std::string textOf(const zarn::Bar &bar);
