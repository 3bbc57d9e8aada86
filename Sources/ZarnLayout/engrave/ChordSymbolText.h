// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnChordMark.h>

#include <string>

namespace zarn::engraving {

/// What stands above a chord: its symbol, or else the name of its diagram. May be empty.
const std::string &shownSymbol(const ChordMark &mark);

/// A chord symbol as it is printed: with sharps and flats where it was typed with # and b, behind
/// the letters of root and bass and in front of degrees: "Ebm7b5/Bb". UTF-8 both.
std::string writtenSymbol(const std::string &symbol);

} // namespace zarn::engraving
