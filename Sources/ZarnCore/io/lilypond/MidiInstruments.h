// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn::lilypond {

/// LilyPond's name of a General MIDI program, counted from 0; that of the first one for numbers
/// outside.
std::string midiInstrument(int program);

} // namespace zarn::lilypond
