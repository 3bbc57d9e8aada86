// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnKeptMarks.h>

#include <cstddef>
#include <vector>

namespace zarn {

/// Beats that a change of the tree may mark otherwise, with their notes, as they were before it.
/// Beats and notes come and go around them, their own notes stay.
class ZARNCORE_EXPORT KeptBeats {
public:
    /// As before the change.
    struct Place {
        unsigned track = 0;
        unsigned staff = 0;
        unsigned bar = 0;
        unsigned voice = 0;
        unsigned beat = 0;
    };

    /// Keeps a beat; `settle` follows the change. Beats that are kept twice do no harm.
    void keep(const Place &place, const Beat &beat);

    /// Finds out which beats are marked otherwise now.
    void settle();
    const std::vector<Place> &changed() const noexcept { return _changed; }

    /// Marks the beats as they were; `find(place)` answers the beat, or null to pass it over.
    template <class Find>
    void putBack(Find find) const
    {
        KeptMarks<Beat>::Return giveToBeat(_beatMarks);
        KeptMarks<Note>::Return giveToNote(_noteMarks);
        std::size_t number = 0;
        for (std::size_t i = 0; i < _places.size(); ++i) {
            Beat *const beat = find(_places[i]);
            if (beat == nullptr) {
                giveToBeat.pass();
                for (; number < _noteEnds[i]; ++number)
                    giveToNote.pass();
                continue;
            }
            giveToBeat.to(*beat);
            for (unsigned note = 0; number < _noteEnds[i]; ++number, ++note)
                giveToNote.to(*beat->notes()[note]);
        }
    }

private:
    std::vector<Place> _places;
    std::vector<Place> _changed;
    std::vector<const Beat *> _pending; ///< until `settle`
    std::vector<std::size_t> _noteEnds; ///< per beat, how many notes are kept up to its last one
    KeptMarks<Beat> _beatMarks;
    KeptMarks<Note> _noteMarks;
};

} // namespace zarn
