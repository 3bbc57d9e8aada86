// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <string_view>

namespace zarn {
class Beat;
class Note;
} // namespace zarn

namespace zarn::io {

class ExportContext;
class ImportContext;
struct SpelledPitch;

/// What <accidental> calls an alteration of -2 to 2 semitones.
const char *accidentalName(int semitones);

/// Whether an accidental of that name alters by so many semitones.
bool isAccidentalOf(std::string_view name, int semitones);

/// By how much a key of so many fifths alters a step, 0 for C to 6 for B.
int alterInKey(int step, int fifths);

/// Writes the <ornaments> of a note into its <notations>, but for wavy lines and what leads to
/// other notes; with the tremolo of the beat when the note is its first. `note` is null for a rest;
/// `pitch` is as written, in a key of so many fifths, and null for none.
void writeOrnaments(const Beat &beat, const Note *note, bool isFirst, const SpelledPitch *pitch,
                    int fifths, pugi::xml_node notations, ExportContext &context);

/// Reads <ornaments>: turns and mordents, trills, tremolos of one note. Those that lead on to other
/// notes, such as wavy lines, are left to the caller.
class OrnamentReader {
public:
    explicit OrnamentReader(ImportContext &context) : _context(context) { }

    void startNote() noexcept { _hasTremolo = _hasTrill = false; }

    /// Whether the element was understood. What depends on the rest of the note waits for `finish`.
    bool read(Tag tag, pugi::xml_node ornament, WrittenNote &note);

    /// `type` is that of `WrittenRhythm`; `fifths` is the key of the part.
    void finish(WrittenNote &note, int type, int fifths)
    {
        if (_hasTremolo)
            setTremolo(note, type);
        if (_hasTrill)
            setTrill(note, fifths);
    }

private:
    void setTremolo(WrittenNote &note, int type);
    void setTrill(WrittenNote &note, int fifths);

    ImportContext &_context;
    pugi::xml_node _tremolo;
    pugi::xml_node _trill;
    bool _hasTremolo = false;
    bool _hasTrill = false;
};

} // namespace zarn::io
