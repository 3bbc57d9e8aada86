// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>

namespace zarn::io {

/// What a tick of a MIDI file is: a part of a quarter, or of a frame of film (SMPTE).
class ZARNCORE_EXPORT MidiDivision {
public:
    /// 480 ticks to a quarter.
    MidiDivision() noexcept = default;

    /// From 1 to 32767.
    static MidiDivision ofQuarter(int ticks) noexcept;

    /// Frames are 24, 25, 29 (which means 30000/1001) or 30 a second, with 1 to 255 ticks each.
    static MidiDivision ofFrame(int framesPerSecond, int ticks) noexcept;

    /// As the header of a file has it, and whether it means something at all.
    static MidiDivision fromWord(std::uint16_t word) noexcept;
    std::uint16_t toWord() const noexcept { return _word; }
    bool isValid() const noexcept;

    /// Ticks are parts of a second: tempos change nothing.
    bool isSmpte() const noexcept { return (_word & 0x8000) != 0; }

    /// Ticks of a quarter; 0 for SMPTE.
    int ticksPerQuarter() const noexcept { return isSmpte() ? 0 : _word; }
    int framesPerSecond() const noexcept;
    int ticksPerFrame() const noexcept { return isSmpte() ? _word & 0xFF : 0; }

    /// A tick in quarters; where frames count, a quarter is half a second. Raises when not valid.
    utils::rational quartersPerTick() const;

    /// A tick in seconds. A quarter takes half a second unless tempos say otherwise, which count
    /// for nothing where frames do. Raises when not valid.
    utils::rational secondsPerTick(std::uint32_t microsecondsPerQuarter = 500000) const;

private:
    explicit MidiDivision(std::uint16_t word) noexcept : _word(word) { }

    std::uint16_t _word = 480;
};

} // namespace zarn::io
