// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

class Beat;

namespace sheet {

/// The fingers of a hand on the notes of a beat, the lowest note first; "-" for notes without one.
QString leftHandOf(const Beat &beat);
QString rightHandOf(const Beat &beat);

} // namespace sheet
} // namespace zarn
