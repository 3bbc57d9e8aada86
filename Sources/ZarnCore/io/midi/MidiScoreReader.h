// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnMidiImporter.h>

namespace zarn::io {

struct MidiFile;

/// Makes a score of what a MIDI file says.
std::shared_ptr<ScoreModel> readMidiScore(const MidiFile &file, const MidiImportOptions &options,
                                          ImportReport &report);

} // namespace zarn::io
