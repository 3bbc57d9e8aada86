// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChord.h>

#include <string>

namespace zarn::chord {

/// What a chord symbol consists of, as it is written: "Fis", "-7" and "h" of "Fis-7/h".
struct ChordSymbolParts {
    std::string root;
    std::string kind;
    std::string bass; ///< empty when none is named

    /// Those of a symbol that reads as `chord`, which is not none.
    static ChordSymbolParts of(const std::string &symbol, const Chord &chord);
};

} // namespace zarn::chord
