// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/SheetBuilder.h>

#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

class Terminal;
using sheet::ShownPart;

/// Diagrams of the chords that stand over the fretted staves of a part, each once per staff and in
/// the order in which they come: as the score has them, else as they are played first. Empty
/// when no chord can be drawn.
std::string scoreDiagrams(const ScoreModel &model, const ShownPart &part, const Terminal &terminal);

} // namespace tool
} // namespace zarn
