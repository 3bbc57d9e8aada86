// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <filesystem/FileHandle.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace zarn::io {

namespace {

constexpr std::uint64_t maximumNumber = 0x0FFFFFFF;

constexpr const char *functionName = "zarn::io::MidiFileWriter::write";

/// Whole numbers, high byte first.
void appendNumber(std::string &bytes, std::uint64_t value, int count)
{
    for (int shift = (count - 1) * 8; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

/// Seven bits a byte, all but the last one marked.
void appendVariableNumber(std::string &bytes, std::uint64_t value)
{
    for (int shift = 21; shift > 0; shift -= 7) {
        if (value >> shift != 0)
            bytes += static_cast<char>((value >> shift & 0x7F) | 0x80);
    }
    bytes += static_cast<char>(value & 0x7F);
}

void appendChunk(std::string &bytes, std::string_view name, std::string_view content)
{
    bytes.append(name);
    appendNumber(bytes, content.size(), 4);
    bytes.append(content);
}

/// Bytes that a meta event must have; nothing for those of any length.
std::optional<std::size_t> fixedSize(MidiMeta kind)
{
    switch (kind) {
    case MidiMeta::ChannelPrefix:
    case MidiMeta::Port:
        return 1;
    case MidiMeta::SequenceNumber:
    case MidiMeta::KeySignature:
        return 2;
    case MidiMeta::Tempo:
        return 3;
    case MidiMeta::TimeSignature:
        return 4;
    case MidiMeta::SmpteOffset:
        return 5;
    default:
        return std::nullopt;
    }
}

bool hasTwoDataBytes(const MidiEvent &event)
{
    return !event.is(MidiMessage::Program) && !event.is(MidiMessage::ChannelPressure);
}

/// Why an event cannot stand in a file; empty when it can.
std::string faultOf(const MidiEvent &event, std::string_view payload)
{
    if (event.isChannelMessage()) {
        if (event.status < 0x80)
            return "its kind or channel does not exist";
        if (event.data1 > 0x7F || (hasTwoDataBytes(event) && event.data2 > 0x7F))
            return "a value is out of range";
        return {};
    }
    if (payload.size() > maximumNumber)
        return "it carries too much";
    if (event.status == 0xF0 || event.status == 0xF7)
        return {};
    if (!event.isMeta())
        return "its kind cannot stand in a file";
    if (event.data1 > 0x7F)
        return "its kind does not exist";
    if (event.is(MidiMeta::EndOfTrack))
        return "the end of a track is written by itself";
    const auto size = fixedSize(static_cast<MidiMeta>(event.data1));
    return size && payload.size() != *size ? "its value is out of range" : "";
}

/// Writes the events of one track.
class TrackBytes {
public:
    TrackBytes(const MidiTrack &track, std::size_t number) : _track(track), _number(number)
    {
        constexpr std::size_t usualBytesOfEvent = 4;
        _bytes.reserve(track.events().size() * usualBytesOfEvent);
        for (const MidiEvent &event : track.events()) {
            append(event);
            ++_event;
        }
        appendTime(track.endTick());
        _bytes.append("\xFF\x2F\x00", 3);
        if (_bytes.size() > std::numeric_limits<std::uint32_t>::max())
            raise("the track is longer than a file can have it");
    }

    const std::string &bytes() const noexcept { return _bytes; }

private:
    void append(const MidiEvent &event)
    {
        const auto payload = _track.payload(event);
        if (const auto fault = faultOf(event, payload); !fault.empty())
            raise(fault);
        appendTime(event.tick);
        if (event.isChannelMessage()) {
            if (event.status != _runningStatus)
                _bytes += static_cast<char>(event.status);
            _runningStatus = event.status;
            _bytes += static_cast<char>(event.data1);
            if (hasTwoDataBytes(event))
                _bytes += static_cast<char>(event.data2);
            return;
        }
        _runningStatus = 0;
        _bytes += static_cast<char>(event.status);
        if (event.isMeta())
            _bytes += static_cast<char>(event.data1);
        appendVariableNumber(_bytes, payload.size());
        _bytes.append(payload);
    }

    void appendTime(std::uint64_t tick)
    {
        if (tick < _tick)
            raise("it is earlier than the one before");
        if (tick - _tick > maximumNumber)
            raise("it is too long after the one before");
        appendVariableNumber(_bytes, tick - _tick);
        _tick = tick;
    }

    [[noreturn]] void raise(const std::string &reason) const
    {
        ZARN_RAISE_IN(functionName,
                      "MIDI track " + std::to_string(_number + 1) + ", event "
                          + std::to_string(_event + 1) + ": " + reason);
    }

    const MidiTrack &_track;
    std::size_t _number;
    std::size_t _event = 0;
    std::string _bytes;
    std::uint64_t _tick = 0;
    std::uint8_t _runningStatus = 0;
};

void check(const MidiFile &file)
{
    if (file.format < 0 || file.format > 2)
        ZARN_RAISE_IN(functionName,
                      "There is no MIDI file of format " + std::to_string(file.format) + ".");
    if (file.format == 0 && file.tracks.size() != 1)
        ZARN_RAISE_IN(functionName, "A MIDI file of format 0 has one track.");
    if (file.tracks.empty() || file.tracks.size() > 0xFFFF)
        ZARN_RAISE_IN(functionName, "A MIDI file has from 1 to 65535 tracks.");
    if (!file.division.isValid())
        ZARN_RAISE_IN(functionName, "The division of the MIDI file means nothing.");
}

} // namespace

std::string MidiFileWriter::toBytes(const MidiFile &file) const
{
    check(file);
    std::string header;
    appendNumber(header, static_cast<std::uint64_t>(file.format), 2);
    appendNumber(header, file.tracks.size(), 2);
    appendNumber(header, file.division.toWord(), 2);

    std::string bytes;
    appendChunk(bytes, "MThd", header);
    for (std::size_t i = 0; i < file.tracks.size(); ++i)
        appendChunk(bytes, "MTrk", TrackBytes(file.tracks[i], i).bytes());
    return bytes;
}

void MidiFileWriter::write(const MidiFile &file, filesystem::FileHandle &handle) const
{
    const std::string bytes = toBytes(file);
    handle.writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    if (!handle.close())
        ZARN_RAISE_IN(functionName, handle.errorText());
}

} // namespace zarn::io
