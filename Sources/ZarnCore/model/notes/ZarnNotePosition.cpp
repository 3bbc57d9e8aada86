// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnNotePosition.h>

#include <ZarnCore/music/ZarnSpellingTables.h>

namespace zarn {

void NotePosition::giveTo(Note &note, const NotePosition &before) const
{
    if (midi != before.midi)
        note.setMidi(midi);
    if (string != before.string)
        note.setString(string);
    if (fret != before.fret)
        note.setFret(fret);
    if (spelling != before.spelling)
        note.setSpellingNumber(spelling);
    if (articulation != before.articulation)
        note.setPercussionArticulation(articulation);
    if (staffLine != before.staffLine)
        note.setStaffLine(staffLine);
    if (head != before.head)
        note.setNoteHead(head);
}

bool sameLocation(const NotePosition &left, const NotePosition &right) noexcept
{
    if (left.string != Note::Unset && right.string != Note::Unset)
        return left.string == right.string;
    return left.midi == right.midi && left.articulation == right.articulation
        && left.staffLine == right.staffLine;
}

std::uint8_t spellingNumber(const std::optional<PitchClass> &spelling) noexcept
{
    if (!spelling || !*spelling)
        return NotePosition::NoSpelling;
    return static_cast<std::uint8_t>(static_cast<unsigned>(spelling->note().value())
                                         * spelling::accidentalCount
                                     + static_cast<unsigned>(spelling->accidental().value()));
}

std::optional<PitchClass> spellingOf(std::uint8_t number) noexcept
{
    if (number >= spelling::spellingCount)
        return std::nullopt;
    return PitchClass(static_cast<NoteName::Value>(number / spelling::accidentalCount),
                      static_cast<NoteAccidental::Value>(number % spelling::accidentalCount));
}

} // namespace zarn
