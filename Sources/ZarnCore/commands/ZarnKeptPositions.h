// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/notes/ZarnNotePosition.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn {

/// Where notes were before a change, in the order in which they were kept: four bytes for each, and
/// four more when percussion moves.
class KeptPositions {
public:
    enum class Parts { Pitches, PitchesAndPercussion };

    explicit KeptPositions(Parts parts) noexcept : _parts(parts) { }

    void clear() noexcept
    {
        _pitches.clear();
        _percussion.clear();
    }
    std::size_t count() const noexcept { return _pitches.size(); }
    void reserve(std::size_t count) { _pitches.reserve(count); }

    void keep(const NotePosition &position)
    {
        _pitches.push_back({position.midi, position.string, position.fret, position.spelling});
        if (_parts == Parts::PitchesAndPercussion)
            _percussion.push_back({position.articulation, position.staffLine, position.head});
    }

    /// Takes no more memory than what is kept needs.
    void shrink()
    {
        _pitches.shrink_to_fit();
        _percussion.shrink_to_fit();
    }

    /// Gives a note back what was kept of it.
    void giveTo(std::size_t number, Note &note) const
    {
        const NotePosition before(note);
        NotePosition position = before;
        position.midi = _pitches[number].midi;
        position.string = _pitches[number].string;
        position.fret = _pitches[number].fret;
        position.spelling = _pitches[number].spelling;
        if (_parts == Parts::PitchesAndPercussion) {
            position.articulation = _percussion[number].articulation;
            position.staffLine = _percussion[number].staffLine;
            position.head = _percussion[number].head;
        }
        position.giveTo(note, before);
    }

private:
    struct Pitch {
        std::int8_t midi;
        std::int8_t string;
        std::int8_t fret;
        std::uint8_t spelling;
    };
    struct Percussion {
        std::int16_t articulation;
        std::int8_t staffLine;
        NoteHead head;
    };

    Parts _parts;
    std::vector<Pitch> _pitches;
    std::vector<Percussion> _percussion;
};

} // namespace zarn
