// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// The broken chords of a passage that are plucked in one figure again and again: there each
/// plucking finger has its string, and its next note comes a figure later. Of each event the
/// highest note counts; basses are left to the thumb, which goes where they are.
class PluckedFigures {
public:
    /// Events of the longest figure.
    static constexpr std::size_t LongestFigure = 8;

    explicit PluckedFigures(const Passage &passage);

    /// How many events in front of a note the one at the same place of the figure before is; 0 for
    /// a note that is of no figure, or of the first one.
    std::size_t eventsSince(std::uint32_t note) const noexcept { return _before[note].events; }

    /// That note; `PassageNote::NoNote` when there is none.
    std::uint32_t noteBefore(std::uint32_t note) const noexcept { return _before[note].note; }

private:
    struct Before {
        std::uint32_t note = PassageNote::NoNote;
        std::uint32_t events = 0;
    };

    void addFigures(const Passage &passage, std::size_t length);
    void addRun(const Passage &passage, std::size_t first, std::size_t end, std::size_t length);

    std::vector<Before> _before;   ///< by note
    std::vector<char> _isOfFigure; ///< by event
};

} // namespace zarn::fingering
