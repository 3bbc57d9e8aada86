// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <optional>
#include <vector>

namespace zarn::io {

class ImportContext;
struct PartFacts;

/// The transpositions of a part, which may differ by staff and change in its course.
///
/// A track has one: that of the first staff where the first note stands. Notes under another one
/// are written as the track's asks, so that they sound the same, and the report tells where.
class StaffTranspositions {
public:
    explicit StaffTranspositions(ImportContext &context) : _context(context) { }

    void startPart(PartFacts &facts);

    /// From here on; for all staves when `staff` is below 0.
    void set(int staff, int chromatic, int diatonic);

    /// Writes a note with a pitch as the transposition of the track asks.
    void adjust(WrittenNote &note);

    void finishPart();

private:
    struct Shift {
        int chromatic = 0; ///< semitones to what sounds
        int diatonic = 0;  ///< and steps

        bool operator==(const Shift &other) const noexcept { return chromatic == other.chromatic; }
    };

    /// Bars of a staff with notes under another transposition than the track's.
    struct Run {
        Shift shift;
        int first;
        int last;
        pugi::xml_node node; ///< the first note
    };

    Shift shiftOf(int staff) const;
    void addToRun(const Shift &shift, const WrittenNote &note);
    void tell(int staff, const Run &run);

    ImportContext &_context;
    PartFacts *_facts = nullptr;
    Shift _common;
    std::vector<std::optional<Shift>> _own; ///< by staff
    std::optional<Shift> _ofTrack;
    std::vector<std::optional<Run>> _runs; ///< by staff
};

} // namespace zarn::io
