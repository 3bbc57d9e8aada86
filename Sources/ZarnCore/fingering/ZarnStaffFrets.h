// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <array>
#include <cstdint>
#include <vector>

namespace zarn {

class Staff;

namespace fingering {

/// Where the pitches of a fretted or bowed staff lie: its tuning, capos, drone and transposition,
/// as they were when this was made. Strings count from 0 as in the tuning; pitches are MIDI keys as
/// written.
class ZARNCORE_EXPORT StaffFrets {
public:
    /// More strings than this no hand is asked to play.
    static constexpr int MostStrings = 12;

    /// Of a staff with more strings, the first `MostStrings`.
    explicit StaffFrets(const Staff &staff);

    int stringCount() const noexcept { return static_cast<int>(_strings.size()); }

    /// The written fret of a pitch on a string; -1 when it is not there.
    int fret(int string, int midi) const noexcept;

    /// The pitch of a string at a fret; -1 when there is none.
    int pitch(int string, int fret) const noexcept;

    /// How far up the neck a fret of a string lies, counted from the lowest capo so that the
    /// strings agree; 0 for an open string.
    int neckFret(int string, int fret) const noexcept;

    /// Whether a string is a short drone, which is only played open unless the user asks.
    bool isDrone(int string) const noexcept { return string == 0 && _hasDrone; }

private:
    static constexpr int KeyCount = 128;
    struct String {
        std::array<std::int8_t, KeyCount> frets;   ///< by key; -1 where there is none
        std::array<std::int8_t, KeyCount> pitches; ///< by fret
        std::int8_t capo;                          ///< frets above the lowest capo
    };

    std::vector<String> _strings;
    bool _hasDrone = false;
};

} // namespace fingering
} // namespace zarn
