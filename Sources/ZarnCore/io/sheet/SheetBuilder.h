// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/Sheet.h>

#include <optional>

namespace zarn {

class ScoreModel;

namespace sheet {

struct Glyphs;
class Legend;

/// Which part of a score is shown; bars and tracks are counted from 0.
struct ShownPart {
    std::optional<unsigned> track; ///< all tracks when unset
    std::optional<unsigned> voice; ///< all voices when unset
    unsigned firstBar = 0;
    unsigned lastBar = 0; ///< included; cut at the end of the score

    /// Whether letters for the rhythm stand over the strings of tablature; all other staves have
    /// them always.
    bool hasTabRhythm = true;
};

/// Turns the music into lanes and columns.
ZARNCORE_EXPORT Sheet buildSheet(const ScoreModel &model, const ShownPart &part,
                                 const Glyphs &glyphs, Legend &legend);

} // namespace sheet
} // namespace zarn
