// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnSpellingTables.h>

#include <array>
#include <cstdint>

namespace zarn {

/// The interval, whatever the octaves, between the tonics of two keys of one mode, and where it
/// leads: music that is moved by it keeps its degrees.
class ZARNCORE_EXPORT KeyTransposition {
public:
    /// Leaves all as it is.
    KeyTransposition();
    KeyTransposition(const KeySignature &from, const KeySignature &to);

    /// Upwards.
    const Interval &interval() const noexcept { return _interval; }

    /// By the numbers of the spellings (see ZarnSpellingTables.h); others stay.
    std::uint8_t spelling(std::uint8_t number) const noexcept
    {
        return number < _spellings.size() ? _spellings[number] : number;
    }

private:
    Interval _interval;
    std::array<std::uint8_t, spelling::spellingCount> _spellings;
};

} // namespace zarn
