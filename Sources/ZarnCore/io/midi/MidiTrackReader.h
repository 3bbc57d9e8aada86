// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/ByteReader.h>
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

namespace zarn::io {

class MidiOddities;

/// Reads the events of one track chunk.
class MidiTrackReader {
public:
    /// The bytes stand behind the head of the chunk, which ends at `chunkEnd` if its length is
    /// right; `number` counts the tracks from 0.
    MidiTrackReader(ByteReader &bytes, std::size_t chunkEnd, int number, MidiOddities &oddities);

    /// The bytes stand behind the track afterwards.
    MidiTrack read();

private:
    enum class Next { Event, End };

    bool isAtChunk() const;
    bool isOver();
    Next readEvent();
    Next readMeta();
    Next readSystemEvent(std::uint8_t status);
    Next readMessage(std::uint8_t first);
    Next cutOff();
    void skipStraySystemMessage(std::uint8_t status);
    void endTrack();
    void tell(const char *text, std::size_t byte);

    ByteReader &_bytes;
    std::size_t _chunkEnd;
    int _number;
    MidiOddities &_oddities;
    MidiTrack _track;
    std::uint64_t _tick = 0;
    std::size_t _eventStart = 0;
    std::uint8_t _status = 0;
    bool _isStatusOld = false; ///< a meta or system event came since
    bool _isPastEnd = false;
};

} // namespace zarn::io
