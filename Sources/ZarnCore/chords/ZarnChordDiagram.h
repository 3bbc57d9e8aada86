// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zarn {

/// How a chord is fingered on a fretted staff.
struct ChordDiagram {
    /// Chord name as it reads, UTF-8.
    std::string name;

    /// Fret at the top of the drawing, 1 at the nut.
    std::uint8_t firstFret = 1;

    /// Fret per string, string 0 the lowest: 0 is open, -1 is not played.
    std::vector<std::int8_t> frets;

    /// Finger per string: 0 none, 1 to 4 from the index finger, 5 the thumb; may be empty.
    std::vector<std::uint8_t> fingers;

    friend bool operator==(const ChordDiagram &left, const ChordDiagram &right)
    {
        return left.name == right.name && left.firstFret == right.firstFret
            && left.frets == right.frets && left.fingers == right.fingers;
    }
    friend bool operator!=(const ChordDiagram &left, const ChordDiagram &right)
    {
        return !(left == right);
    }
};

/// Lets the drawing begin at the nut when it reaches over all frets, else at the lowest stop.
ZARNCORE_EXPORT void setFirstFret(ChordDiagram &diagram);

/// A finger that holds several strings down at a fret.
struct DiagramBarre {
    std::uint8_t finger;
    std::int8_t fret;
    std::uint8_t firstString;
    std::uint8_t lastString;
};

/// The barres of a diagram, the lowest fret first. Strings of one course, whose sizes are given
/// from string 0 on, are no barre; without sizes each string is a course.
ZARNCORE_EXPORT std::vector<DiagramBarre> barresOf(const ChordDiagram &diagram,
                                                   const std::vector<unsigned> &courseSizes = {});

} // namespace zarn
