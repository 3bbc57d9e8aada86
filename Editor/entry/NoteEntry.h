// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

namespace zarn::editor {

class Document;

enum class Adding { Replaces, Adds };

/// What keys do at the cursor. Each is one step of undo, and leaves the score as it is where it is
/// not possible.

/// A digit of a fret on the string of the cursor: 1 and then 2 soon behind it is the fret 12.
void enterFretDigit(Document &document, int digit);

/// A dead note on the string of the cursor; a note that is there becomes one, or sounds again.
void enterDeadNote(Document &document);

/// A note by its letter, in place of the notes of the beat or, added, beside them; then the cursor
/// goes on. The octave is the nearest one.
void enterLetter(Document &document, NoteName letter, Adding adding);

/// The notes that "higher" and "lower" mean: what is selected, the note of the cursor, or, behind
/// the last note that was typed, that one.
ScoreModelRange notesToMove(const Document &document);

/// A rest, in place of the notes of the beat.
void enterRest(Document &document);

/// The note value of the next beat, and of what is selected or the beat of the cursor.
void enterNoteValue(Document &document, RhythmValue::NoteValue value);
/// The dots, taken away when they are there.
void enterDots(Document &document, unsigned dots);
/// The same for tuplets: `first` in the time of `second`.
void enterTuplet(Document &document, RhythmValue::TupletRatio ratio);
/// Steps longer or, negative, shorter.
void enterLonger(Document &document, int steps);

/// Ties the note to the one before, or strikes it anew when it is tied.
void enterTie(Document &document);

/// Makes rests of what is selected or of the beat, or removes the beats.
void removeNotes(Document &document);
void removeBeats(Document &document);
void insertBeat(Document &document);

/// Goes on by a beat; behind the last one of the score, into a new bar.
void goOn(Document &document);

} // namespace zarn::editor
