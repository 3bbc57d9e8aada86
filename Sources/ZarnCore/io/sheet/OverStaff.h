// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/BeatPlace.h>
#include <ZarnCore/io/sheet/NumberedSlurs.h>
#include <ZarnCore/io/sheet/StretchRun.h>
#include <ZarnCore/model/ZarnBar.h>

#include <memory>
#include <vector>

namespace zarn {

class MasterBar;

namespace sheet {

struct Glyphs;
class Legend;

/// Writes the words and lines over one staff: texts, techniques, fermatas, "let ring" and its like,
/// slurs.
class OverStaff {
public:
    struct Lanes {
        int texts;
        int techniques;
        int slurs;
    };

    OverStaff(Sheet &sheet, const Lanes &lanes, const Glyphs &glyphs, Legend &legend);

    void write(const BeatPlace &place, SheetBar &into);
    void writeFermatas(const MasterBar &bar, SheetBar &into);
    void endBar(SheetBar &into);

    /// Matches slurs with those of another staff of its track.
    void joinTrackOf(const OverStaff &other) { _numberedSlurs = other._numberedSlurs; }

    /// Writes what could not be while there were bars to come, for all staves of the track.
    void finish() { _numberedSlurs->write(_sheet); }

private:
    struct VoiceRuns {
        StretchRun slur;
        StretchRun text;
        std::vector<StretchRun> techniques; ///< by the number of their kind
    };

    void writeText(const BeatPlace &place, SheetBar &into);
    void writeTechniques(const BeatPlace &place, SheetBar &into);
    void writeSlur(const BeatPlace &place, SheetBar &into);
    Stretch stretch(int lane, Stretch::Style style, const BeatPlace &place) const;

    Sheet &_sheet;
    Lanes _lanes;
    const Glyphs &_glyphs;
    Legend &_legend;
    std::vector<VoiceRuns> _voices;
    std::shared_ptr<NumberedSlurs> _numberedSlurs = std::make_shared<NumberedSlurs>();
};

} // namespace sheet
} // namespace zarn
