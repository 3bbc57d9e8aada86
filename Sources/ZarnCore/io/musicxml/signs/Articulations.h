// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/MusicXmlTag.h>

#include <pugixml.hpp>

namespace zarn {
class Beat;
class Note;
} // namespace zarn

namespace zarn::io {

struct WrittenNote;

/// Gives a note, and the beat that it stands on, what an element of <articulations> says; false for
/// an element that the tree has no place for.
bool readArticulation(Tag tag, WrittenNote &note);

/// Writes the <articulations> of a note into its <notations>, with what its beat says when it is
/// the first one; `note` is null for a rest.
void writeArticulations(const Beat &beat, const Note *note, bool isFirst, pugi::xml_node notations);

} // namespace zarn::io
