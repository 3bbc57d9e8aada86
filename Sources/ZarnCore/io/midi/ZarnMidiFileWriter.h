// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>

namespace filesystem {
class FileHandle;
}

namespace zarn::io {

struct MidiFile;

/// Writes Standard MIDI Files (Standard MIDI Files 1.0, RP-001), and only right ones: it raises
/// `CoreException`, naming track and event, for events that are out of order or further apart than
/// a file can say (268,435,455 ticks), for bytes out of their range, signatures of the wrong size,
/// a division that means nothing, and a format that does not fit the tracks.
///
/// Channel messages share their status byte where they may. The end of each track is written at
/// its `endTick`; an event that says so by itself is refused.
class ZARNCORE_EXPORT MidiFileWriter {
public:
    /// The file as it is stored.
    std::string toBytes(const MidiFile &file) const;

    /// Writes the file and closes the handle, which makes it take the old one's place; raises when
    /// that fails. Nothing is written unless all of the file can be.
    void write(const MidiFile &file, filesystem::FileHandle &handle) const;
};

} // namespace zarn::io
