// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/attributes/ZarnChordMark.h>

#include <pugixml.hpp>

namespace zarn::io {

class ExportContext;

/// Writes a chord over a beat as the content of a <harmony>, diagram and all. A symbol that is no
/// chord is written as a function, which reads as it stands.
void writeHarmony(const ChordMark &chord, pugi::xml_node harmony, ExportContext &context);

} // namespace zarn::io
