// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>
#include <ZarnCore/io/midi/StaffBuilder.h>

#include <cstddef>

namespace zarn::io {

/// Puts the words of a part under the notes with which they begin, both in the order of their
/// times. Answers how many found no note. Karaoke files part words by spaces and begin lines and
/// verses with "/" and "\"; others join the syllables of a word by "-".
std::size_t placeLyrics(const std::vector<MidiText> &lyrics,
                        const std::vector<StaffBuilder::Onset> &onsets);

} // namespace zarn::io
