// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/VoiceLine.h>

#include <memory>
#include <optional>

namespace zarn {

/// Looks for a beat, or for a note of one, that comes behind or in front of a place in its line.
/// `ScoreModelIndex` says what its neighbours are. Only looks while the place is there.
class NeighbourSearch {
public:
    /// Looks in the beat so many steps away and in no other.
    static NeighbourSearch next(const ScoreModelIndex &place, unsigned count) noexcept
    {
        return NeighbourSearch(place, Direction::Next, count, false);
    }
    static NeighbourSearch previous(const ScoreModelIndex &place, unsigned count) noexcept
    {
        return NeighbourSearch(place, Direction::Previous, count, false);
    }

    /// Looks in one beat after the other, with `here` in the beat of the place first.
    static NeighbourSearch nextValid(const ScoreModelIndex &place, bool here) noexcept
    {
        return NeighbourSearch(place, Direction::Next, std::nullopt, here);
    }
    static NeighbourSearch previousValid(const ScoreModelIndex &place, bool here) noexcept
    {
        return NeighbourSearch(place, Direction::Previous, std::nullopt, here);
    }

    std::shared_ptr<Beat> beat() const;

    // The first note of the first beat that has such a note.

    /// Nothing is found without anything to locate notes by; that is logged.
    std::shared_ptr<Note> noteWithSameLocators() const;
    std::shared_ptr<Note> noteWithString(int string) const;
    std::shared_ptr<Note> noteWithMidi(int midi) const;
    std::shared_ptr<Note> noteWithStaffLine(int staffLine) const;

private:
    using Direction = VoiceLine::Direction;
    using Gaps = VoiceLine::Gaps;

    NeighbourSearch(const ScoreModelIndex &place, Direction direction,
                    std::optional<unsigned> count, bool here) noexcept
        : _place(place), _direction(direction), _count(count), _here(here)
    {
    }

    template <class Look>
    bool walk(VoiceLine &line, Look look) const;
    template <class Find>
    std::shared_ptr<Note> note(Find find) const;
    template <class Matches>
    std::shared_ptr<Note> noteThat(Matches matches) const;

    const ScoreModelIndex &_place;
    Direction _direction;
    std::optional<unsigned> _count; ///< steps to the only beat that is looked at
    bool _here;
};

} // namespace zarn
