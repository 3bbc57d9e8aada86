// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

/// A note as it is written in a bar, beside how the file plays it.
struct NotatedNote {
    enum class Kind : std::uint8_t {
        Struck,
        Stroke, ///< one of several that one written note is played as: a tremolo, an ornament
        Held,   ///< tied to the note of its key before, and not struck
        Silent, ///< written, and never struck by itself
    };

    Kind kind = Kind::Struck;
    bool isGrace = false;
    std::uint8_t staff = 0;
    std::uint8_t voice = 0;
    std::uint8_t key = 0;   ///< that sounds
    std::int8_t fifth = 0;  ///< how it is spelled as it sounds, on the line of fifths from C
    MidiTime onset = 0;     ///< in its bar
    MidiTime length = 0;    ///< in its bar; 0 for grace notes
    MidiTime startLate = 0; ///< how much later it is struck; so is it ended
    MidiTime endLate = 0;
};

/// What one bar of a track has in its staves. MIDI files do not say how music is written; a file of
/// our own says it in events of the kind that the Standard MIDI File keeps for sequencers (FF 7F),
/// which all other programs pass over. They stand where their bars begin. A reader believes them
/// where they agree with the notes (see `matchNotatedBars`).
///
/// An event holds the manufacturer's number 7D (no manufacturer), "zarn", a number for what
/// follows, and numbers of seven bits a byte.
struct NotatedBar {
    static constexpr unsigned mostStaves = 4;

    MidiTime length = 0;
    std::vector<NotatedNote> notes;
};

/// What the event carries.
std::string payloadOf(const NotatedBar &bar);

/// Nothing for events of others, and for what cannot be.
std::optional<NotatedBar> readNotatedBar(std::string_view payload);

/// The meter that is written where a bar is as long as another one, for the first track; the last
/// of them, "0/1", stands where the last bar ends.
struct WrittenMeter {
    unsigned numerator = 0;
    unsigned denominator = 1;

    bool isEnd() const noexcept { return numerator == 0; }
};

std::string payloadOf(const WrittenMeter &meter);
std::optional<WrittenMeter> readWrittenMeter(std::string_view payload);

} // namespace zarn::io
