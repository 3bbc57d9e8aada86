// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/DrumStaff.h>

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>
#include <ZarnCore/model/notes/ZarnNotePosition.h>

#include <algorithm>
#include <iterator>

namespace zarn::io {

namespace {

struct DrumRow {
    int key;
    int line; ///< half spaces above the bottom line
    NoteHead head = NoteHead::Normal;
};

// Where the keys of General MIDI level 1 stand, as in the drum kit of the instrument sets; the
// hi-hat keys of General MIDI level 2 (22 and 26) and others below the map have the places of their
// kind.
// clang-format off
constexpr DrumRow rows[] = {
    {22, 9, NoteHead::Cross}, {26, 9, NoteHead::CircleX},
    {35, 0}, {36, 1}, {37, 5, NoteHead::Cross}, {38, 5}, {39, 4, NoteHead::Cross},
    {40, 5, NoteHead::Slashed}, {41, 2}, {42, 9, NoteHead::Cross}, {43, 3},
    {44, -1, NoteHead::Cross}, {45, 4}, {46, 9, NoteHead::CircleX}, {47, 6}, {48, 7},
    {49, 10, NoteHead::Cross}, {50, 8}, {51, 8, NoteHead::Cross}, {52, 11, NoteHead::Cross},
    {53, 8, NoteHead::Diamond}, {54, 6, NoteHead::Triangle}, {55, 12, NoteHead::Cross},
    {56, 7, NoteHead::Triangle}, {57, 11, NoteHead::Cross}, {58, 13, NoteHead::Diamond},
    {59, 7, NoteHead::Cross}, {60, 9}, {61, 10}, {62, 6, NoteHead::Cross}, {63, 8}, {64, 11},
    {65, 12}, {66, 13}, {67, 9, NoteHead::Triangle}, {68, 10, NoteHead::Triangle},
    {69, 13, NoteHead::Cross}, {70, 14, NoteHead::Cross}, {71, 15, NoteHead::Cross}, {72, 15},
    {73, 16, NoteHead::Cross}, {74, 16}, {75, 17, NoteHead::Cross}, {76, 11, NoteHead::Triangle},
    {77, 12, NoteHead::Triangle}, {78, 18, NoteHead::Cross}, {79, 18},
    {80, 19, NoteHead::Cross}, {81, 19},
};
// clang-format on

constexpr int middleLine = 4;

const DrumRow *findRow(int key)
{
    const auto *const row = std::find_if(std::begin(rows), std::end(rows),
                                         [&](const DrumRow &known) { return known.key == key; });
    return row == std::end(rows) ? nullptr : row;
}

} // namespace

void setDrum(Note &note, int key, const InstrumentSet *set)
{
    note.setMidi(key);
    const int index = set == nullptr ? -1 : set->indexOfArticulationWithMidi(key);
    if (set != nullptr)
        if (const auto position = positionOfArticulation(*set, index)) {
            position->giveTo(note);
            note.setMidi(key);
            return;
        }
    const auto *const row = findRow(key);
    note.setStaffLine(row ? row->line : middleLine);
    if (row)
        note.setNoteHead(row->head);
}

std::optional<DrumLook> lookOfKey(const Note &note, const Bar &bar)
{
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    if (!track || !InstrumentSet::isUnpitched(track->type())
        || note.staffLine() != Note::NoStaffLine || note.percussionArticulation() != Note::Unset)
        return std::nullopt;
    const auto set = track->instrumentSet();
    const int index = set ? set->indexOfArticulationWithMidi(note.midi()) : -1;
    if (index >= 0) {
        const auto &articulation = set->articulations()[static_cast<std::size_t>(index)];
        return DrumLook{articulation.staffLine(), articulation.notehead(0).noteHead()};
    }
    const auto *const row =
        track->type() == InstrumentSet::drumKit ? findRow(note.midi()) : nullptr;
    return row ? std::optional<DrumLook>({row->line, row->head}) : std::nullopt;
}

} // namespace zarn::io
