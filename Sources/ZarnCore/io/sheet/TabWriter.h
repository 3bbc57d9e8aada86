// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/SoundingPitch.h>
#include <ZarnCore/io/sheet/StaffWriter.h>

#include <map>
#include <vector>

namespace zarn {

class Staff;

namespace sheet {

/// A fretted staff as tablature: a line per string, the highest one on top, frets on it.
///
/// The first voice has its rhythm above the strings, the others below. Where voices strike
/// together and cross, the frets of the lower ones carry a mark.
class TabWriter final : public StaffWriter {
public:
    TabWriter(Sheet &sheet, const Staff &staff, const QString &name, const Glyphs &glyphs,
              Legend &legend);

private:
    struct Fret {
        int string = 0;
        unsigned voice = 0;
        QString text;
    };

    void writeNotes(const BeatPlace &place, SheetBar &into) override;
    void writeDeadSlap(const BeatPlace &place, SheetBar &into) override;
    void beginBar(const Bar &bar) override;
    void endBar(SheetBar &into) override;
    QString fretText(const Note &note, const BeatPlace &place) const;
    int laneOf(int string) const { return _topLane + _stringCount - 1 - string; }

    int _stringCount;
    int _topLane = 0;
    int _strayLane = 0; ///< notes without a string, by their names
    SoundingPitch _pitch;
    std::map<ColumnKey, std::vector<Fret>> _frets;
};

/// Whether a staff is shown as tablature: it has strings, and its notes, if any, have frets.
ZARNCORE_EXPORT bool isShownAsTab(const Staff &staff);

} // namespace sheet
} // namespace zarn
