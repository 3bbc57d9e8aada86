// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::editor {

/// Colours of the windows; pages are white as paper in all of them.
enum class Appearance { System, Light, Dark };

/// What the user chose last.
Appearance appearance();

/// Shows all windows so from now on, in later runs too.
void setAppearance(Appearance chosen);

/// Shows windows as the user chose last.
void applyAppearance();

} // namespace zarn::editor
