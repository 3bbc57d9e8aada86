// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <string>

namespace zarn::io {

class ImportContext;

/// A <harmony> as a chord symbol reads, such as "C#m7/G#"; several chords in one element have
/// spaces between them.
std::string harmonyText(pugi::xml_node harmony, ImportContext &context);

} // namespace zarn::io
