// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnHandModel.h>
#include <ZarnCore/fingering/ZarnStaffFrets.h>

#include <array>
#include <cstdint>

namespace zarn::fingering {

/// One way to hold all that sounds at an event: the notes that begin with it and those that last
/// from before.
struct Grip {
    static constexpr int Strings = StaffFrets::MostStrings;
    static constexpr int Fingers = chord::HandModel::fingerCount;
    static constexpr float Anywhere = -100;

    /// By string: place on the neck, 0 for open, and the finger from 1 to 4, 0 for none.
    std::array<std::int8_t, Strings> fret{};
    std::array<std::int8_t, Strings> finger{};

    /// By string: its note in `Passage::notes`.
    std::array<std::uint32_t, Strings> note{};

    /// Bits by string: that sound at all, that are stopped, that sound from before.
    std::uint16_t sounding = 0;
    std::uint16_t stopped = 0;
    std::uint16_t held = 0;

    /// By finger: where it lies, if it does.
    std::array<std::int8_t, Fingers> fretOfFinger{};
    std::array<std::int8_t, Fingers> stringOfFinger{};

    /// Bits by finger: that lies on a string at all, and over several strings.
    std::uint8_t fingers = 0;
    std::uint8_t barred = 0;

    /// Of `stopped`.
    std::int8_t stopCount = 0;

    /// Place of the hand: the fret of an index finger at ease. `Anywhere` before the first stopped
    /// note.
    float position = Anywhere;

    /// Effort of holding it, and that of the shape of the hand, which counts where it is new.
    float cost = 0;
    float shape = 0;

    /// Wider than a hand is, or with more notes than fingers.
    bool isTooWide = false;

    /// Strings of the highest notes of this event and of those in front, on the easiest way to this
    /// grip: `PluckBits` for each, the last in the lowest ones.
    static constexpr unsigned PluckBits = 4;
    static constexpr unsigned NoPluck = (1U << PluckBits) - 1;
    std::uint32_t plucks = UINT32_MAX;

    /// Bits by string: that begin to sound.
    unsigned fresh() const noexcept { return sounding & ~static_cast<unsigned>(held); }

    /// Whether fingers take strings for a chord that is struck.
    bool isStruckChord() const noexcept
    {
        constexpr int fewest = 3;
        return __builtin_popcount(stopped & fresh()) >= fewest;
    }

    bool sounds(int string) const noexcept { return (sounding >> string & 1) != 0; }
    bool isHeld(int string) const noexcept { return (held >> string & 1) != 0; }
    bool isStopped(int string) const noexcept { return (stopped >> string & 1) != 0; }
};

} // namespace zarn::fingering
