// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {
class Bar;
}

namespace zarn::sheet {

/// Whether a bar can be drawn as the simile sign that it is marked with: it holds no beats, or
/// plays the same as the bar that the sign repeats. What was changed since is written out.
bool isDrawnAsSimile(const Bar &bar);

} // namespace zarn::sheet
