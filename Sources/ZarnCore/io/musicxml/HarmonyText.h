// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <pugixml.hpp>

#include <memory>
#include <string>

namespace zarn::io {

class ImportContext;

/// A <harmony> as a chord symbol reads, such as "C#m7/G#"; several chords in one element have
/// spaces between them.
std::string harmonyText(pugi::xml_node harmony, ImportContext &context);

/// The diagram in a <frame>; null when there is none, or none that can be read.
std::shared_ptr<const ChordDiagram> readFrame(pugi::xml_node frame, const std::string &name,
                                              ImportContext &context);

} // namespace zarn::io
