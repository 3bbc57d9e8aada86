// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/notes/ZarnNotePosition.h>

#include <algorithm>

namespace zarn {
namespace {

constexpr int highestMidi = 127;

bool fitsNote(const InstrumentArticulation &articulation, int index) noexcept
{
    return index <= Note::MaxArticulation && articulation.outputMidiNumber() >= 0
        && articulation.outputMidiNumber() <= highestMidi
        && articulation.staffLine() > Note::NoStaffLine && articulation.staffLine() <= 127;
}

} // namespace

std::shared_ptr<Note> noteWithArticulation(const Beat &beat, int index)
{
    const auto &notes = beat.notes();
    const auto found = std::find_if(notes.begin(), notes.end(), [index](const auto &note) {
        return note->percussionArticulation() == index;
    });
    return found == notes.end() ? nullptr : *found;
}

std::optional<NotePosition> positionOfArticulation(const InstrumentSet &set, int index) noexcept
{
    const auto number = static_cast<std::size_t>(index);
    if (index < 0 || number >= set.articulations().size()
        || !fitsNote(set.articulations()[number], index))
        return std::nullopt;
    const InstrumentArticulation &articulation = set.articulations()[number];
    NotePosition position;
    position.midi = static_cast<std::int8_t>(articulation.outputMidiNumber());
    position.articulation = static_cast<std::int16_t>(index);
    position.staffLine = static_cast<std::int8_t>(articulation.staffLine());
    position.head = articulation.notehead(0).noteHead();
    return position;
}

std::shared_ptr<Note> addNoteOfSet(const InstrumentSet &set, Beat &beat, std::int32_t midi)
{
    if (midi < 0 || midi > highestMidi)
        return nullptr;
    std::shared_ptr<Note> note;
    if (set.articulations().empty()) {
        if (auto held = beat.noteWithMidi(midi))
            return held;
        note = std::make_shared<Note>(midi);
    } else {
        const int index = set.indexOfArticulationWithMidi(midi);
        if (index < 0)
            return nullptr;
        const auto position = positionOfArticulation(set, index);
        if (!position)
            return nullptr;
        if (auto held = noteWithArticulation(beat, index))
            return held;
        note = std::make_shared<Note>();
        position->giveTo(*note);
    }
    beat.addNote(note);
    return note;
}

} // namespace zarn
