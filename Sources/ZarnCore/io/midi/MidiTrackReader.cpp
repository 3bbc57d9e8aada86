// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiTrackReader.h>

#include <ZarnCore/io/midi/MidiOddities.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr std::string_view trackTag = "MTrk";

/// Bytes that usually make an event, with its time.
constexpr std::size_t usualEvent = 4;

} // namespace

MidiTrackReader::MidiTrackReader(ByteReader &bytes, std::size_t chunkEnd, int number,
                                 MidiOddities &oddities)
    : _bytes(bytes), _chunkEnd(chunkEnd), _number(number), _oddities(oddities)
{
}

void MidiTrackReader::tell(const char *text, std::size_t byte)
{
    _oddities.add(text, _number, byte);
}

MidiTrack MidiTrackReader::read()
{
    const std::size_t end = std::min(_chunkEnd, _bytes.size());
    if (end > _bytes.position())
        _track.reserve((end - _bytes.position()) / usualEvent);
    while (!isOver() && readEvent() == Next::Event) { }
    _track.setEndTick(_tick);
    return std::move(_track);
}

/// Whether another chunk begins here: a tag of four letters and a length that the file has.
bool MidiTrackReader::isAtChunk() const
{
    ByteReader ahead = _bytes;
    const auto tag = ahead.block(trackTag.size());
    const auto size = ahead.number(4);
    return tag && size && (*tag == trackTag || *size <= ahead.rest())
        && std::all_of(tag->begin(), tag->end(), [](char letter) {
               return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
           });
}

/// Whether the track ends here although no event said so.
bool MidiTrackReader::isOver()
{
    if (_bytes.isAtEnd()) {
        tell("the file ends before the track does", _bytes.position());
        return true;
    }
    if (_bytes.position() < _chunkEnd || _isPastEnd)
        return false;
    if (_bytes.position() == _chunkEnd && isAtChunk()) {
        tell("the track has no end-of-track event", _bytes.position());
        return true;
    }
    tell("the track goes on behind its stated length", _chunkEnd);
    _isPastEnd = true;
    return false;
}

MidiTrackReader::Next MidiTrackReader::readEvent()
{
    _eventStart = _bytes.position();
    const auto delta = _bytes.variableNumber();
    if (!delta) {
        if (_bytes.rest() < 4)
            return cutOff();
        tell("a time of more than four bytes: the rest of the track was left out", _eventStart);
        _bytes.seek(std::max(_chunkEnd, _eventStart));
        return Next::End;
    }
    const auto first = _bytes.peek();
    if (!first)
        return cutOff();
    _tick += *delta;
    if (*first == 0xFF)
        return readMeta();
    if (*first == 0xF0 || *first == 0xF7)
        return readSystemEvent(*first);
    if (*first > 0xF0) {
        skipStraySystemMessage(*first);
        return Next::Event;
    }
    return readMessage(*first);
}

MidiTrackReader::Next MidiTrackReader::cutOff()
{
    tell("the file ends in the middle of an event, which was left out", _eventStart);
    _bytes.seek(_bytes.size());
    return Next::End;
}

MidiTrackReader::Next MidiTrackReader::readMeta()
{
    _bytes.byte();
    const auto kind = _bytes.byte();
    const auto size = _bytes.variableNumber();
    if (!kind || !size || *size > _bytes.rest())
        return cutOff();
    const auto payload = *_bytes.block(*size);
    if (*kind == static_cast<std::uint8_t>(MidiMeta::EndOfTrack)) {
        endTrack();
        return Next::End;
    }
    _track.addMeta(_tick, static_cast<MidiMeta>(*kind), payload);
    _isStatusOld = true;
    return Next::Event;
}

/// Goes on behind the chunk, or where the next track begins if the length was wrong.
void MidiTrackReader::endTrack()
{
    const std::size_t here = _bytes.position();
    if (here >= _chunkEnd)
        return;
    if (_bytes.standsAt(trackTag)) {
        tell("the track is shorter than its stated length", here);
        return;
    }
    tell("bytes behind the end of the track were left out", here);
    _bytes.seek(_chunkEnd);
}

MidiTrackReader::Next MidiTrackReader::readSystemEvent(std::uint8_t status)
{
    _bytes.byte();
    const auto size = _bytes.variableNumber();
    if (!size || *size > _bytes.rest())
        return cutOff();
    _track.addSystemEvent(_tick, status, *_bytes.block(*size));
    _isStatusOld = true;
    return Next::Event;
}

/// Messages that belong on a wire, not into a file.
void MidiTrackReader::skipStraySystemMessage(std::uint8_t status)
{
    tell("a system message that has no place in a file was left out", _eventStart);
    const std::size_t dataBytes = status == 0xF2 ? 2 : status == 0xF1 || status == 0xF3 ? 1 : 0;
    _bytes.seek(_bytes.position() + 1 + dataBytes);
}

MidiTrackReader::Next MidiTrackReader::readMessage(std::uint8_t first)
{
    if (first >= 0x80) {
        _bytes.byte();
        _status = first;
    } else if (_status == 0) {
        tell("a byte that belongs to no event was left out", _bytes.position());
        _bytes.byte();
        return Next::Event;
    } else if (_isStatusOld) {
        tell("running status goes on behind a meta or system event", _eventStart);
    }
    _isStatusOld = false;
    MidiEvent event;
    event.tick = _tick;
    event.status = _status;
    const bool hasTwo = !event.is(MidiMessage::Program) && !event.is(MidiMessage::ChannelPressure);
    const auto data = _bytes.block(hasTwo ? 2 : 1);
    if (!data)
        return cutOff();
    event.data1 = static_cast<std::uint8_t>((*data)[0]);
    event.data2 = hasTwo ? static_cast<std::uint8_t>((*data)[1]) : 0;
    if ((event.data1 | event.data2) > 0x7F) {
        // A byte is missing: what looks like a status begins the next event.
        tell("an event that lacks a byte was left out", _eventStart);
        _bytes.seek(_bytes.position() - (event.data1 > 0x7F && hasTwo ? 2 : 1));
        return Next::Event;
    }
    _track.add(event);
    return Next::Event;
}

} // namespace zarn::io
