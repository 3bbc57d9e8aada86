// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn::lilypond {

struct StaffContext;

/// What the voices of a staff share, as music of skips: clefs, keys, ottavas, pedals.
std::string staffLineOf(const StaffContext &context);

} // namespace zarn::lilypond
