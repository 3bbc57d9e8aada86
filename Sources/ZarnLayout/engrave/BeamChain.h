// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>

#include <cstddef>

namespace zarn::engraving {

using BeamedNumbers = Few<std::size_t, 8>;

/// The chords that one beam leads over, from the given one on, which no beam leads to; those with
/// no beam are alone. Grace notes among others are beamed by themselves. `chordAt` has the chord of
/// each number, voice by voice, in time.
template <class ChordAt>
BeamedNumbers beamChain(std::size_t first, std::size_t count, ChordAt chordAt)
{
    BeamedNumbers chain{first};
    const Chord &start = chordAt(first);
    for (std::size_t i = first + 1; i < count && chordAt(chain.back()).beat->isBeamedOn; ++i) {
        const Chord &chord = chordAt(i);
        if (chord.voice != start.voice)
            break;
        if (chord.beat->isGrace() == start.beat->isGrace())
            chain.push_back(i);
        else if (start.beat->isGrace())
            break;
    }
    return chain;
}

} // namespace zarn::engraving
