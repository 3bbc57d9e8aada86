// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnNote.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>

namespace zarn {

/// What is sounded and where: all of a note that changes when it is moved, in eight bytes.
struct ZARNCORE_EXPORT NotePosition {
    static constexpr std::uint8_t NoSpelling = Note::NoSpelling;

    // As of the note; see there.
    std::int8_t midi = Note::Unset;
    std::int8_t string = Note::Unset;
    std::int8_t fret = Note::Unset;
    std::uint8_t spelling = NoSpelling; ///< number of the spelling, see `spellingNumber`
    std::int16_t articulation = Note::Unset;
    std::int8_t staffLine = Note::NoStaffLine;
    NoteHead head = NoteHead::Normal;

    NotePosition() = default;
    explicit NotePosition(const Note &note) noexcept
        : midi(static_cast<std::int8_t>(note.midi())),
          string(static_cast<std::int8_t>(note.string())),
          fret(static_cast<std::int8_t>(note.fret())), spelling(note.spellingNumber()),
          articulation(static_cast<std::int16_t>(note.percussionArticulation())),
          staffLine(static_cast<std::int8_t>(note.staffLine())), head(note.noteHead())
    {
    }

    /// Changes what is different in a note; `before` is where it is.
    void giveTo(Note &note, const NotePosition &before) const;
    void giveTo(Note &note) const { giveTo(note, NotePosition(note)); }

    friend bool operator==(const NotePosition &left, const NotePosition &right) noexcept
    {
        return std::memcmp(&left, &right, sizeof(NotePosition)) == 0;
    }
    friend bool operator!=(const NotePosition &left, const NotePosition &right) noexcept
    {
        return !(left == right);
    }
};
static_assert(sizeof(NotePosition) == 8 && std::has_unique_object_representations_v<NotePosition>);

/// Whether both are at one place of their instrument; as of notes.
ZARNCORE_EXPORT bool sameLocation(const NotePosition &left, const NotePosition &right) noexcept;

/// The spellings by number: seven letters from C up, each with five accidentals from the double
/// flat up. `NoSpelling` is none.
ZARNCORE_EXPORT std::uint8_t spellingNumber(const std::optional<PitchClass> &spelling) noexcept;
ZARNCORE_EXPORT std::optional<PitchClass> spellingOf(std::uint8_t number) noexcept;

} // namespace zarn
