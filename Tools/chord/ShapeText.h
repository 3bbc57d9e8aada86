// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <QString>

#include <string>

namespace zarn::tool {

/// The shape that a person types for so many strings: "x32010", a sign a string from the lowest on,
/// x for one that is not played; from fret 10 on with dashes, "x-12-14-14-13-12". Raises `Failure`
/// that says what would be right.
ChordDiagram shapeOf(const QString &text, unsigned stringCount);

/// The text that `shapeOf` reads.
std::string shapeText(const ChordDiagram &diagram);

} // namespace zarn::tool
