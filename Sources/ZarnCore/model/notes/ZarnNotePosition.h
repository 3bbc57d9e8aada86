// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnNote.h>

#include <cstdint>
#include <optional>

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
    explicit NotePosition(const Note &note);

    /// Changes what is different in a note; `before` is where it is.
    void giveTo(Note &note, const NotePosition &before) const;
    void giveTo(Note &note) const { giveTo(note, NotePosition(note)); }

    friend bool operator==(const NotePosition &left, const NotePosition &right) noexcept
    {
        return left.midi == right.midi && left.string == right.string && left.fret == right.fret
            && left.spelling == right.spelling && left.articulation == right.articulation
            && left.staffLine == right.staffLine && left.head == right.head;
    }
    friend bool operator!=(const NotePosition &left, const NotePosition &right) noexcept
    {
        return !(left == right);
    }
};
static_assert(sizeof(NotePosition) == 8);

/// Whether both are at one place of their instrument; as of notes.
ZARNCORE_EXPORT bool sameLocation(const NotePosition &left, const NotePosition &right) noexcept;

/// The spellings by number: seven letters from C up, each with five accidentals from the double
/// flat up. `NoSpelling` is none.
ZARNCORE_EXPORT std::uint8_t spellingNumber(const std::optional<PitchClass> &spelling) noexcept;
ZARNCORE_EXPORT std::optional<PitchClass> spellingOf(std::uint8_t number) noexcept;

} // namespace zarn
