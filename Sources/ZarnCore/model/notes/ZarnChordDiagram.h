// SPDX-License-Identifier: MIT
#pragma once

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

} // namespace zarn
