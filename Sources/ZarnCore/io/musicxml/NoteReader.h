// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/NotationsReader.h>
#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/TupletTracker.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

class ImportContext;

/// The <type> of a note by its number in `WrittenRhythm`, 0 to 13.
const char *noteTypeName(int type);

/// The other way round; `NoType` for a text that names none.
int noteTypeOf(std::string_view name);

/// Reads what stands inside of one <note>, in one pass over its children. Times are left to the
/// measure's reader.
class NoteReader {
public:
    explicit NoteReader(ImportContext &context) : _context(context), _notations(context) { }

    void startMeasure() noexcept { _chordMarks = {}; }

    /// Reads into a new note everything but onset, length and rhythm.
    void read(pugi::xml_node node, WrittenNote &note);

    /// Ends the tuplets that end at the note read last, when its rhythm is known, and reports those
    /// that begin at it and have no ratio in that.
    void finishTuplets(const WrittenNote &note);

    /// Of the note read last: its written length in divisions, when there is one, and its type,
    /// dots and tuplets.
    const std::optional<utils::rational> &duration() const noexcept { return _duration; }
    const WrittenRhythm &rhythm() const noexcept { return _rhythm; }

    /// The same with the tuplets that the brackets around it tell, whatever its own time
    /// modification says.
    const WrittenRhythm &bracketedRhythm() const noexcept { return _bracketed; }

    /// Gives the notes of a tuplet dots from the note read last on, where it begins at that note
    /// and the durations alone, in `divisions` of a quarter, tell of them; how many.
    int supplyDots(const WrittenNote &note, const utils::rational &divisions);

    /// Its signs that its marks do not hold.
    const std::vector<WrittenSign> &signs() const noexcept { return _notations.signs(); }

    /// Dynamics that stand at the note itself.
    const std::vector<pugi::xml_node> &dynamics() const noexcept { return _notations.dynamics(); }

    /// The number of a voice of the part by its name.
    int voiceNumber(const char *name);

    /// Starts another part, whose counts go here; its key is looked up as it is read.
    void startPart(const PartFacts &facts, PartTally &tally, SourceTally &whole);

private:
    void readPitch(pugi::xml_node pitch, WrittenNote &note);
    void readUnpitched(pugi::xml_node unpitched, WrittenNote &note);
    void readStem(pugi::xml_node stem, WrittenNote &note);
    void readPlay(pugi::xml_node play, WrittenNote &note);
    void readVelocity(const char *dynamics, WrittenNote &note);
    void readAccidental(pugi::xml_node accidental, WrittenNote &note);
    void readHead(pugi::xml_node head, WrittenNote &note);
    void readType(pugi::xml_node type, WrittenNote &note);
    void addDots(int dots);
    TupletRatio readModification(pugi::xml_node node);
    void count(const WrittenNote &note);

    ImportContext &_context;
    const PartFacts *_facts = nullptr;
    PartTally *_tally = nullptr;
    NotationsReader _notations;
    TupletTracker _tuplets;
    BeatMarks _chordMarks; ///< of the chord that the notes read last belong to
    std::optional<utils::rational> _duration;
    WrittenRhythm _rhythm;
    WrittenRhythm _bracketed;
    TupletRatio _modification;
    bool _hasModification = false;
    bool _opensTuplets = false; ///< where none was open in its voice
};

} // namespace zarn::io
