// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>

#include <cstddef>
#include <vector>

namespace zarn::engraving {

/// The chords that one beam leads over, from the given one on, which no beam leads to; those with
/// no beam are alone. Grace notes among others are beamed by themselves. `chordAt` has the chord of
/// each number, voice by voice, in time.
template <class ChordAt>
std::vector<std::size_t> beamChain(std::size_t first, std::size_t count, ChordAt chordAt)
{
    constexpr std::size_t usualChords = 4;
    std::vector<std::size_t> chain;
    chain.reserve(usualChords);
    chain.push_back(first);
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
