// SPDX-License-Identifier: MIT
#include <ZarnCore/model/clip/NoteAdaptation.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr int highestKey = 127;
constexpr int octave = 12;

bool areSameStrings(const Staff &left, const Staff &right)
{
    return left.tuning() == right.tuning() && left.capoFret() == right.capoFret()
        && left.partialCapoFret() == right.partialCapoFret()
        && left.partialCapoStringFlags() == right.partialCapoStringFlags()
        && left.fretCount() == right.fretCount();
}

InstrumentSet::Type typeOf(const Staff &staff)
{
    const auto track = staff.track();
    return track ? track->type() : InstrumentSet::unknown;
}

int transpositionOf(const Staff &staff)
{
    const auto track = staff.track();
    return track ? track->transpositionOffset() : 0;
}

} // namespace

NoteAdaptation::NoteAdaptation(const Staff &from, const Staff &to, Strings strings)
    : _to(to), _strings(strings), _isSamePercussion(typeOf(from) == typeOf(to)),
      _isSilent(InstrumentSet::isUnpitched(typeOf(from)) != InstrumentSet::isUnpitched(typeOf(to))),
      _isFretted(to.isFretted()), _isUnpitched(InstrumentSet::isUnpitched(typeOf(to))),
      _shift(transpositionOf(from) - transpositionOf(to))
{
    _keepsFrets = areSameStrings(from, to) && _shift == 0;
    for (const BeatAttributeRow &row : beatAttributes())
        if (!hasOn(row.staves))
            _alienToBeats.push_back(&row);
    for (const NoteAttributeRow &row : noteAttributes())
        if (!hasOn(row.staves))
            _alienToNotes.push_back(&row);
}

void NoteAdaptation::adapt(const Voice::Beats &beats)
{
    for (const auto &beat : beats)
        adapt(beat);
}

void NoteAdaptation::adapt(const std::shared_ptr<Beat> &beat)
{
    if (_isSilent)
        beat->takeNotes();
    else
        adaptNotes(*beat);
    dropMarks(*beat);
    if (beat->chord().diagram != nullptr
        && beat->chord().diagram->frets.size() != _to.tuning().stringCount()) {
        ChordMark chord = beat->chord();
        chord.diagram.reset();
        beat->setChord(chord);
    }
    _before = beat;
}

void NoteAdaptation::adaptNotes(Beat &beat)
{
    if (_isUnpitched) {
        const auto track = _to.track();
        const auto set = track ? track->instrumentSet() : nullptr;
        if (!_isSamePercussion && set != nullptr)
            for (const auto &note : beat.takeNotes())
                if (const auto added = addNoteOfSet(*set, beat, note->midi()))
                    added->setMarks(note->marks());
        if (_isFretted)
            dropMissingLines(beat);
        return;
    }
    for (unsigned i = beat.noteCount(); i-- > 0;)
        if (!adaptPitch(*beat.notes()[i]))
            beat.removeNote(i);
    if (!_isFretted)
        dropStrings(beat);
    else if (!_keepsFrets && _strings == Strings::Open)
        leaveOpen(beat);
    else if (!_keepsFrets)
        placeOnStrings(beat);
}

/// Drums that are shown on lines as on strings lose those that the staff lacks.
void NoteAdaptation::dropMissingLines(Beat &beat) const
{
    for (const auto &note : beat.notes())
        if (note->string() >= static_cast<int>(_to.tuning().stringCount()))
            note->setString(Note::Unset);
}

/// False for what has no pitch to write.
bool NoteAdaptation::adaptPitch(Note &note) const
{
    if (note.midi() == Note::Unset)
        return _keepsFrets;
    if (_shift == 0)
        return true;
    int midi = note.midi() + _shift;
    while (midi < 0)
        midi += octave;
    while (midi > highestKey)
        midi -= octave;
    note.setMidi(midi);
    if (_shift % octave != 0)
        note.clearSpelling();
    return true;
}

/// The string that it had, when it has the pitch; else the free one with the lowest fret. A note
/// that is held on stays where it is.
void NoteAdaptation::placeOnStrings(Beat &beat)
{
    const int stringCount = static_cast<int>(_to.tuning().stringCount());
    std::vector<bool> isTaken(static_cast<std::size_t>(stringCount));
    std::vector<Note *> open;
    const auto put = [&](Note &note, int string, int fret) {
        note.setString(string);
        note.setFret(fret);
        if (string >= 0)
            isTaken[static_cast<std::size_t>(string)] = true;
    };
    for (const auto &note : beat.notes()) {
        const Note *held = nullptr;
        for (const auto &other : _before ? _before->notes() : Beat::Notes())
            if (note->isTied() && other->isTieOrigin() && other->midi() == note->midi())
                held = other.get();
        const int string = held != nullptr ? held->string() : note->string();
        const int fret = string >= 0 ? fretOfPitch(_to, string, note->midi()) : -1;
        if (fret >= 0 && !isTaken[static_cast<std::size_t>(string)])
            put(*note, string, fret);
        else
            open.push_back(note.get());
    }
    for (Note *const note : open) {
        int best = Note::Unset;
        int bestFret = Note::Unset;
        for (int string = 0; string < stringCount; ++string) {
            const int fret = fretOfPitch(_to, string, note->midi());
            if (fret >= 0 && !isTaken[static_cast<std::size_t>(string)]
                && (bestFret < 0 || fret < bestFret)) {
                best = string;
                bestFret = fret;
            }
        }
        put(*note, best, bestFret);
    }
}

/// What sounds as before on its string and fret stays there.
void NoteAdaptation::leaveOpen(Beat &beat)
{
    for (const auto &note : beat.notes()) {
        const bool isThere = note->string() >= 0 && note->fret() >= 0
            && fretOfPitch(_to, note->string(), note->midi()) == note->fret();
        if (isThere)
            continue;
        note->setString(Note::Unset);
        note->setFret(Note::Unset);
        _hasOpen = true;
    }
}

/// Notes that were apart on strings may be one without them.
void NoteAdaptation::dropStrings(Beat &beat) const
{
    for (unsigned i = 0; i < beat.noteCount();) {
        Note &note = *beat.notes()[i];
        note.setString(Note::Unset);
        note.setFret(Note::Unset);
        const auto &notes = beat.notes();
        const bool isDouble = std::any_of(notes.begin(), notes.begin() + i, [&](const auto &other) {
            return sameLocation(*other, note);
        });
        if (isDouble)
            beat.removeNote(i);
        else
            ++i;
    }
}

bool NoteAdaptation::hasOn(OnStaves staves) const noexcept
{
    switch (staves) {
    case OnStaves::Fretted:
        return _isFretted;
    case OnStaves::Pitched:
        return !_isUnpitched;
    case OnStaves::Unpitched:
        return _isUnpitched;
    case OnStaves::All:
        break;
    }
    return true;
}

namespace {

template <class Node, class Row>
void resetAll(Node &node, const std::vector<const Row *> &rows)
{
    if (node.marks().isPlain() && !node.hasDetails())
        return;
    for (const Row *const row : rows)
        reset(node, *row);
}

} // namespace

void NoteAdaptation::dropMarks(Beat &beat) const
{
    resetAll(beat, _alienToBeats);
    for (const auto &note : beat.notes())
        resetAll(*note, _alienToNotes);
}

} // namespace zarn
