// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

namespace zarn::io {

class ImportContext;

/// Gives a note the bend that all <bend> elements of a <technical> make together, or its beat what
/// the whammy bar does when they are played with it.
void readBends(pugi::xml_node technical, const NotePlace &place, ImportContext &context);

} // namespace zarn::io
