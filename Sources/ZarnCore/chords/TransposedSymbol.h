// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnInterval.h>

#include <string>

namespace zarn::chord {

/// A chord symbol an interval higher, root and bass; what is between them stays as it is written.
/// A text that is no chord symbol, and "N.C.", stay as they are.
std::string transposedSymbol(const std::string &symbol, const Interval &interval);

} // namespace zarn::chord
