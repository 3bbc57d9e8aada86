// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zarn::io {

/// What notes are fitted to.
struct GridChoice {
    MidiTime shortest = 0; ///< length of the shortest note; 0 for what the music needs
    bool hasTuplets = true;
};

/// One way to divide a beat: the places where notes may begin and end, and what it costs to write
/// so. Costs are those of probabilities: differences of 1 are a factor of e.
struct BeatGrid {
    /// Kinds of divisions; a beat prefers that of the beat before.
    enum Family : std::uint8_t { Plain, Triplet, Quintuplet, Septuplet, Mixed };
    static constexpr std::size_t familyCount = 5;

    struct Place {
        MidiTime at;
        double price;
    };

    Family family = Plain;
    double price = 0;
    std::vector<Place> places; ///< from 0 to the length of the beat, both included

    /// The place where a time is best written, and the cost of that: of the place, and of being
    /// off by so many times the deviation. Nothing costs more than `mostForTime`.
    struct Fit {
        MidiTime at;
        double cost;
    };
    Fit fit(MidiTime time, double deviation) const noexcept;

    /// The first place that is not in front of a time; the end of the beat for later ones.
    const Place &placeFrom(MidiTime time) const noexcept;

    static constexpr double mostForTime = 16;
};

/// The grids for beats of a length, the cheapest first.
std::vector<BeatGrid> beatGrids(MidiTime length, const GridChoice &choice);

} // namespace zarn::io
