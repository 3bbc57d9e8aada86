// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>

#include <string>
#include <string_view>

namespace filesystem {
class FileHandle;
}

namespace zarn::io {

class ImportReport;

/// Reads Standard MIDI Files of the formats 0, 1 and 2, plain or in a RIFF file, and takes what
/// files from the wild are like: running status goes on behind meta and system events, chunks that
/// are no tracks are passed over, and where lengths are wrong the events themselves tell where a
/// track ends. A file that is cut off has what is there. All that is odd is told in the report,
/// with its track and byte.
///
/// Raises `ImportException`, which says at which byte and why, for what is no MIDI file. What is
/// read takes memory in proportion to the file, whatever its header claims.
class ZARNCORE_EXPORT MidiFileReader {
public:
    /// Whether bytes from the start of a file are those of a MIDI file.
    static bool isMidiFile(std::string_view start) noexcept;

    /// `name` is for messages.
    MidiFile read(const std::string &name, std::string_view bytes, ImportReport &report) const;
    MidiFile read(filesystem::FileHandle &handle, ImportReport &report) const;
};

} // namespace zarn::io
