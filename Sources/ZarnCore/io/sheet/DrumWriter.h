// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/StaffWriter.h>

#include <map>

namespace zarn {

class Staff;
class Track;

namespace sheet {

/// An unpitched staff as a grid: a row per instrument, its hits as letters.
class DrumWriter final : public StaffWriter {
public:
    DrumWriter(Sheet &sheet, const Staff &staff, const QString &name, const Glyphs &glyphs,
               Legend &legend);

private:
    void writeNotes(const BeatPlace &place, SheetBar &into) override;

    std::map<QString, int> _lanes; ///< by the name of the instrument
};

/// Whether a staff is shown as a grid of drums: its instrument has no pitches, or its clef none.
bool isShownAsDrums(const Track &track, const Staff &staff);

} // namespace sheet
} // namespace zarn
