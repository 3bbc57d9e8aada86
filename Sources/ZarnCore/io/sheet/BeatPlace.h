// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>
#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::sheet {

/// A beat and where it stands in the bar that is written.
struct BeatPlace {
    const Beat &beat;
    const Beat *next; ///< behind it in its voice, over bar lines too; null at the end
    ColumnKey column;
    unsigned voice;

    /// Behind all columns in the time of the beat, those of other voices included.
    ColumnKey end() const
    {
        return beat.isGrace() ? column
                              : ColumnKey{column.onset + beat.length(), ColumnKey::Signature};
    }
};

} // namespace zarn::sheet
