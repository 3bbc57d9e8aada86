// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

namespace zarn::io {

class MidiOddities;
struct MidiFile;

/// Reads what the events of a MIDI file mean: notes, tempos, meters, keys, texts, and the parts
/// that they belong to. A part is what one track plays with one sound; drums are a part of their
/// own, and so are channels of a track that play with different sounds. Two tracks for one keyboard
/// are its two staves. The tracks of format 2 come one after the other.
MidiMusic readMidiMusic(const MidiFile &file, MidiOddities &oddities);

} // namespace zarn::io
