// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/instruments/InstrumentName.h>

#include <string_view>

namespace zarn::io {

/// The instrument of a standard sound of MusicXML 4.0, such as "pluck.guitar.nylon-string"; of one
/// that is not known, that of the longest known beginning. It stays open where the sound names a
/// family alone. Sounds without pitch answer what they are struck on; unknown for effects.
NamedInstrument instrumentOfStandardSound(std::string_view sound);

/// The standard sound that names an instrument best; empty when none does.
std::string_view standardSoundOf(InstrumentSet::Type type);

/// The category that comes nearest to a General MIDI level 1 program, counted from 0.
InstrumentSet::Type instrumentOfProgram(int program);

} // namespace zarn::io
