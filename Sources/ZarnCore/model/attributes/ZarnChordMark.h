// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <memory>
#include <string>

namespace zarn {

/// A chord over a beat: its symbol as it reads, such as "C#m7/G#" (UTF-8), a diagram, or both.
/// Diagrams are shared and never change.
struct ChordMark {
    std::string symbol;
    std::shared_ptr<const ChordDiagram> diagram;

    bool isEmpty() const noexcept { return symbol.empty() && diagram == nullptr; }

    /// Compares the diagrams by what they show.
    friend bool operator==(const ChordMark &left, const ChordMark &right)
    {
        const bool isSame = left.diagram == right.diagram
            || (left.diagram && right.diagram && *left.diagram == *right.diagram);
        return isSame && left.symbol == right.symbol;
    }
    friend bool operator!=(const ChordMark &left, const ChordMark &right)
    {
        return !(left == right);
    }
};

} // namespace zarn
