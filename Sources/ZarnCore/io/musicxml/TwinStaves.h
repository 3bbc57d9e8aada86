// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/TrackBuilder.h>
#include <ZarnCore/io/musicxml/TwinNotes.h>

#include <map>
#include <string>
#include <vector>

namespace zarn::io {

class ImportContext;
struct PartTally;

/// Makes one staff of a staff with notes and its tablature in the same part, which repeat each
/// other: marked so (MusicXML 4.0, staff-type "alternate"), or equal note by note.
///
/// Strings, frets, tuning and capo come from the tablature, clefs, rhythm and spelling from the
/// notes. What one of them alone holds is kept; what contradicts is told.
class TwinStaves {
public:
    TwinStaves(ImportContext &context, PartFacts &facts, StaffBars &bars, PartTally &tally);

    void merge();

private:
    using BeatPairs = std::map<const Beat *, Beat *>; ///< of the tablature and of the notes

    std::size_t staffOfNotes(std::size_t tablature) const;
    bool areEqual(std::size_t notes, std::size_t tablature, int octave) const;
    std::size_t matches(std::size_t notes, std::size_t tablature, int octave) const;
    bool isTwin(std::size_t notes, std::size_t tablature);
    void mergeStaff(std::size_t notes, std::size_t tablature);
    void mergeBar(int number, Bar &bar, Bar &twin);
    void tellOnce(int bar, const char *text);
    void takeFrom(int number, const PlacedNote &own, const PlacedNote &twin);
    void keepAlone(Bar &bar, Bar &twin, const PlacedNotes &own, const PlacedNotes &alone);
    void takeMarks(int number, const Bar &twin, const PlacedNotes &own, const BeatPairs &pairs);
    void takeAttributes(const Beat &twin, Beat &beat) const;
    void countDropped(const Bar &twin);
    void dropStaff(std::size_t staff);

    ImportContext &_context;
    PartFacts &_facts;
    StaffBars &_bars;
    PartTally &_tally;
    std::vector<bool> _hasTwin; ///< by staff
    bool _hasSlurs = false;     ///< the staff of the notes that is merged has slurs of its own
    int _octave = 0;            ///< semitones from the tablature's pitches to those of the notes
    std::map<std::string, int> _told; ///< the last bar of each text, counted from 1
};

} // namespace zarn::io
