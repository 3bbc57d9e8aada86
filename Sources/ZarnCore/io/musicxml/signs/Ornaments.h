// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

namespace zarn::io {

class ImportContext;

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
