// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <tuple>

namespace zarn {

/// What leads over any number of beats and is marked where it begins and ends alone.
enum class SpanKind : std::uint8_t {
    Pedal,    ///< of a staff; may be held to the end
    TextSpan, ///< the line behind words, in a voice
    Slur,     ///< a numbered one, anywhere in a track
    Word,     ///< the syllables of a word, in a line of lyrics of a voice; may wait for notes
};

/// The place of a track where only one span of a kind runs at a time.
struct SpanLine {
    SpanKind kind = SpanKind::Pedal;
    unsigned staff = 0;
    unsigned voice = 0;
    unsigned number = 0; ///< of a slur, or of a line of lyrics

    friend bool operator<(const SpanLine &left, const SpanLine &right) noexcept
    {
        return std::tie(left.kind, left.staff, left.voice, left.number)
            < std::tie(right.kind, right.staff, right.voice, right.number);
    }
};

} // namespace zarn
