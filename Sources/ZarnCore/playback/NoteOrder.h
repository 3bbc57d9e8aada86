// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/ZarnPlannedNote.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <cstdint>
#include <vector>

namespace zarn::playback {

/// Finds the order in which the notes of several lists sound: by parts of bars, and in each of them
/// by numbers that are quicker to compare than fractions. Two times that differ by less than their
/// rounding keep the order of the lists.
class NoteOrder {
public:
    /// A note, by the number of its list and its place in it.
    struct Place {
        double time;
        std::uint32_t list;
        std::uint32_t index;
    };

    explicit NoteOrder(const PlayedBars &bars);

    /// The next list. Notes are large: each list is looked at once, when it was just made.
    void add(const std::vector<PlannedNote> &notes);

    /// All notes, for once.
    std::vector<Place> sorted();

private:
    std::vector<double> _barStarts; ///< and the end of time
    std::vector<Place> _places;
    std::vector<std::uint32_t> _bars; ///< of the places
    std::uint32_t _lists = 0;
};

} // namespace zarn::playback
