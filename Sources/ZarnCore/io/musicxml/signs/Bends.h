// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

namespace zarn::io {

class ExportContext;
class ImportContext;

/// Write the <bend> elements of a note, or of the whammy bar during its beat, into its <notations>.
void writeBend(const Bend &bend, pugi::xml_node notations, ExportContext &context);
void writeWhammyBar(const WhammyBar &bar, pugi::xml_node notations, ExportContext &context);

/// Gives a note the bend that all <bend> elements of a <technical> make together, or its beat what
/// the whammy bar does when they are played with it.
void readBends(pugi::xml_node technical, const NotePlace &place, ImportContext &context);

} // namespace zarn::io
