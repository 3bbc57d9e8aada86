// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <string>
#include <vector>

namespace zarn::tool {

class Terminal;

/// Chord diagrams as players know them, strings upright and the lowest at the left, with their
/// names above: as many beside each other as the terminal is wide. Barres reach over the courses,
/// whose sizes are those of `chord::courseSizes`.
std::string diagramPicture(const std::vector<ChordDiagram> &diagrams,
                           const std::vector<unsigned> &courseSizes, const Terminal &terminal);

} // namespace zarn::tool
