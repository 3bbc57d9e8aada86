// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/ZarnMidiFileReader.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/MidiTrackReader.h>
#include <filesystem/FileHandle.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr std::string_view headerTag = "MThd";
constexpr std::string_view trackTag = "MTrk";
constexpr std::string_view containerTag = "RIFF";
constexpr std::string_view containerKind = "RMID";

/// Bytes of tag and length in front of a chunk's content.
constexpr std::size_t chunkHead = 8;
constexpr std::size_t headerSize = 6;

/// Reads one file.
class Reading {
public:
    Reading(const std::string &name, std::string_view bytes) : _name(name), _bytes(bytes) { }

    MidiFile read(ImportReport &report)
    {
        enterContainer();
        readHeader();
        while (_bytes.rest() >= chunkHead)
            readChunk();
        if (!_bytes.isAtEnd())
            _oddities.add("bytes behind the last chunk were left out", MidiOddities::NoTrack,
                          _bytes.position());
        if (_file.tracks.empty())
            refuse(_bytes.position(), "there is no track");
        if (_file.tracks.size() != _claimedTracks)
            _oddities.add("the header speaks of " + std::to_string(_claimedTracks)
                          + " tracks, and the file has " + std::to_string(_file.tracks.size()));
        if (_file.format == 0 && _file.tracks.size() > 1)
            _oddities.add("a file of format 0 has one track; all tracks are read");
        _oddities.tell(report);
        return std::move(_file);
    }

private:
    [[noreturn]] void refuse(std::size_t byte, const std::string &reason) const
    {
        ZARN_REFUSE_IN("zarn::io::MidiFileReader::read", _name, "byte " + std::to_string(byte),
                       reason);
    }

    /// Leaves the bytes where the MIDI file begins.
    void enterContainer()
    {
        if (!_bytes.standsAt(containerTag))
            return;
        _bytes.seek(chunkHead);
        if (!_bytes.standsAt(containerKind))
            refuse(chunkHead, "a RIFF file without a MIDI file in it");
        _bytes.seek(chunkHead + containerKind.size());
        while (_bytes.rest() >= chunkHead) {
            const bool isData = _bytes.standsAt("data");
            _bytes.block(4);
            const std::size_t size = _bytes.number(4, true).value_or(0);
            if (isData)
                return;
            const std::size_t padding = size % 2;
            _bytes.seek(_bytes.position() + size + padding);
        }
        refuse(_bytes.position(), "a RIFF file without a MIDI file in it");
    }

    void readHeader()
    {
        const std::size_t start = _bytes.position();
        if (!_bytes.standsAt(headerTag))
            refuse(start, "no MIDI file: it does not begin with \"MThd\"");
        _bytes.block(headerTag.size());
        const auto size = _bytes.number(4);
        if (!size || *size < headerSize || _bytes.rest() < headerSize)
            refuse(start + headerTag.size(), "the header is too short");
        const std::size_t content = _bytes.position();
        const auto format = *_bytes.number(2);
        _claimedTracks = *_bytes.number(2);
        const auto division = static_cast<std::uint16_t>(*_bytes.number(2));
        if (format > 2)
            _oddities.add("the format " + std::to_string(format)
                              + " is not known; read as format 1",
                          MidiOddities::NoTrack, content);
        _file.format = format > 2 ? 1 : static_cast<int>(format);
        _file.division = MidiDivision::fromWord(division);
        if (!_file.division.isValid()) {
            _file.division = MidiDivision();
            _oddities.add("the header does not say how long a tick is; a quarter has 480",
                          MidiOddities::NoTrack, content + 4);
        }
        // A longer header is one of a later version, unless tracks begin in what it claims.
        if (!_bytes.standsAt(trackTag))
            _bytes.seek(content + *size);
    }

    void readChunk()
    {
        const bool isTrack = _bytes.standsAt(trackTag);
        const std::size_t start = _bytes.position();
        _bytes.block(trackTag.size());
        const std::size_t size = *_bytes.number(4);
        const std::size_t end = _bytes.position() + size;
        const auto number = static_cast<int>(_file.tracks.size());
        if (size > _bytes.rest())
            _oddities.add("a chunk is longer than the file", isTrack ? number : -1, start);
        if (isTrack) {
            _file.tracks.push_back(MidiTrackReader(_bytes, end, number, _oddities).read());
            return;
        }
        _oddities.add("a chunk that is no track was passed over", MidiOddities::NoTrack, start);
        _bytes.seek(end);
    }

    const std::string &_name;
    ByteReader _bytes;
    MidiFile _file;
    std::size_t _claimedTracks = 0;
    MidiOddities _oddities;
};

} // namespace

bool MidiFileReader::isMidiFile(std::string_view start) noexcept
{
    if (start.substr(0, headerTag.size()) == headerTag)
        return true;
    return start.substr(0, containerTag.size()) == containerTag && start.size() > chunkHead
        && start.substr(chunkHead, containerKind.size()) == containerKind;
}

MidiFile MidiFileReader::read(const std::string &name, std::string_view bytes,
                              ImportReport &report) const
{
    return Reading(name, bytes).read(report);
}

MidiFile MidiFileReader::read(filesystem::FileHandle &handle, ImportReport &report) const
{
    const std::string bytes = readWhole(handle);
    return read(handle.path(), bytes, report);
}

} // namespace zarn::io
