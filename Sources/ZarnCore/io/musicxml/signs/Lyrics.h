// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

#include <map>
#include <string>

namespace zarn::io {

class ImportContext;

/// Writes the syllables of a beat into its first <note>. Texts without a letter that XML can hold
/// are left out.
/// Answers how many have no text to write, and were left out.
unsigned writeLyrics(const Syllables &syllables, pugi::xml_node note);

/// Puts the syllables under the notes of a part. Documents name the lines; a line whose name is no
/// number, or that another one has taken, gets the next that is free.
class Lyrics {
public:
    explicit Lyrics(ImportContext &context) : _context(context) { }

    void startPart() { _lines.clear(); }

    /// A <lyric> of a note that stands at a place.
    void add(pugi::xml_node lyric, const NotePlace &place);

private:
    static Syllable read(pugi::xml_node lyric);
    int lineOf(const char *name);

    ImportContext &_context;
    std::map<std::string, int> _lines; ///< by name; past the last where no line was free
};

} // namespace zarn::io
