// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn::engraving {

/// A chord symbol as it is printed: with sharps and flats where it was typed with # and b, behind
/// the letters of root and bass and in front of degrees: "Ebm7b5/Bb". UTF-8 both.
std::string writtenSymbol(const std::string &symbol);

} // namespace zarn::engraving
