// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/MusicXmlTag.h>

namespace zarn::io {

struct WrittenNote;

/// Gives a note, and the beat that it stands on, what an element of <articulations> says; false for
/// an element that the tree has no place for.
bool readArticulation(Tag tag, WrittenNote &note);

} // namespace zarn::io
