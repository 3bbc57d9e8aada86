// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zarn::io {

/// A text of a MIDI file as UTF-8: as it stands if it is that already, else read as Latin-1. White
/// space at both ends goes, and so do control characters.
std::string textOfMidi(std::string_view bytes);

/// The same with the white space that it has.
std::string rawTextOfMidi(std::string_view bytes);

} // namespace zarn::io
