// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// What the strings that are given tell of those that are not: a player who fixes how a figure is
/// played means it wherever the figure returns, and mostly keeps a pitch where he has put it.
class KnownStrings {
public:
    explicit KnownStrings(const Passage &passage);

    /// Strings, as bits, on which the same pitch is given between the same neighbours; none when it
    /// is nowhere or the note has a string itself.
    unsigned ofFigure(std::uint32_t note) const noexcept
    {
        return _known.empty() ? 0U : _known[note].ofFigure;
    }

    /// The same of the pitch alone, where it is given last before the note and first behind it.
    unsigned ofPitch(std::uint32_t note) const noexcept
    {
        return _known.empty() ? 0U : _known[note].ofPitch;
    }

    /// Lowest written fret of a position that the player asks for by a note nearby: one that he has
    /// put up the neck, though it lies farther down as well. 0 where he asks for none.
    int lowestFret(std::uint32_t note) const noexcept
    {
        return _known.empty() ? 0 : _known[note].lowestFret;
    }

private:
    struct Known {
        std::uint16_t ofFigure = 0;
        std::uint16_t ofPitch = 0;
        std::int8_t lowestFret = 0;
    };

    void findFigures(const Passage &passage);
    void findPitches(const Passage &passage);
    void findPositions(const Passage &passage);

    std::vector<Known> _known; ///< by note; empty when no string is given
};

} // namespace zarn::fingering
