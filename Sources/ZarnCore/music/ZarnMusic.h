// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <QString>

#include <optional>
#include <vector>

namespace zarn {

/// A letter with its accidental, as in a list of chord tones.
struct NoteAndAccidental {
    NoteName note;
    NoteAccidental accidental;
};

/// Conversions between MIDI numbers, spellings and places on the staff.
///
/// Staff lines count lines and spaces from the bottom line, which is 0, upwards: the first space
/// is 1, the middle line 4, the top line 8; below the staff they are negative. Octaves count as
/// MIDI numbers divide by 12: middle C, MIDI 60, begins octave 5. `ottavia` is the number of
/// octaves that an ottava sign adds to what is written, 2 for 15ma to -2 for 15mb; see
/// `ottaviaOctaves`. The clefs None and Neutral have the lines of G2. A number that is no clef
/// raises.
///
/// What asks for a note or a bar of a score is a template: the tree stands above this layer and
/// answers with the functions of `model/notes/ZarnWrittenPitch.h`.
class ZARNCORE_EXPORT Music {
public:
    Music() = delete;

    /// The spelling of a key without double accidentals, black keys as sharps or as flats. The
    /// accidental is written to where the pointer leads, if it leads anywhere.
    static NoteName noteNameFromMidi(int midi, bool preferSharp,
                                     NoteAccidental *accidental = nullptr) noexcept;
    static NoteAccidental accidentalFromMidi(int midi, bool preferSharp) noexcept;

    /// As `NoteName::toString` and `NoteName::fromString`; a null text raises.
    static QString noteNameToString(NoteName name);
    static NoteName noteNameFromString(const char *text);

    /// "C E G# Bb".
    static QString noteAndAccidentalsToString(const std::vector<NoteAndAccidental> &notes);

    /// The first in the order of intervals that leads from one spelling to the other, if any does.
    static std::optional<Interval> simplestNoteQualification(const PitchClass &from,
                                                             const PitchClass &to);

    /// Flags or beams of a note: 1 for an eighth, 6 for a 256th, 0 from a quarter upwards. A
    /// number that is no note value raises.
    static int getNumberOfBeamsByValue(RhythmValue::NoteValue noteValue);

    /// The key some semitones higher or lower, in the writing with the fewest accidentals; F sharp
    /// and G flat have six each, there the key's `transposeAsSharps` decides.
    static KeySignature transposedKeySignature(const KeySignature &key, int semitones) noexcept;

    /// The written pitch of a note: its own, or what its string and fret sound on its staff, the
    /// capo and the track's transposition counted in. -1 when there is neither.
    template <class Note>
    static int midi(const Note &note)
    {
        return writtenMidi(note);
    }

    /// The letter on which a note is written; invalid for a note without a pitch.
    template <class Note>
    static NoteName noteName(const Note &note)
    {
        return writtenNoteName(note);
    }

    /// How a note is written when its pitch is `midi`: with its own accidental if some letter has
    /// it there, otherwise as in a key signature with that many sharps (negative: flats).
    template <class Note>
    static core::Pitch computePitchAccordingToMidi(const Note &note, int midi,
                                                   int keyAccidentalCount)
    {
        return writtenPitch(note, midi, keyAccidentalCount);
    }

    /// The key signature to draw: the key of the bar's column, transposed as its track is
    /// written. C major for a bar outside of a model.
    template <class Bar>
    static KeySignature drawingKeySignatureForBar(const Bar &bar)
    {
        return writtenKeySignature(bar);
    }

    /// 2 for 15ma, 1 for 8va, 0, -1 and -2; a number outside the enumeration counts as none.
    static int ottaviaOctaves(Ottavia ottavia) noexcept;

    /// Place of the bottom line among all letters: 7 * octave + letter of what it sounds.
    static int lineOffsetFromClefAndOttavia(ClefType clef, int ottavia);

    /// What sounds when a natural note stands on a line.
    static NoteName noteNameFromStaffLine(int staffLine, ClefType clef);
    static int octaveFromStaffLine(int staffLine, ClefType clef, int ottavia);
    static int midiFromStaffLine(int staffLine, ClefType clef, int ottavia);

    /// The line of a letter in an octave, without ottava; an invalid letter raises.
    static int staffLineOfNote(NoteName name, ClefType clef, int octave);

    /// The line on which a key is written, black keys as sharps.
    static int computeStaffLineWithMidi(int midi, ClefType clef, int ottavia);

    /// The line on which a key is written with an accidental: MIDI 60 with Sharp stands on the
    /// line of B. Where no letter has that accidental, or with None, as
    /// `computeStaffLineWithMidi`.
    static int staffLineFromMidiAndAccidental(int midi, ClefType clef, int ottavia,
                                              Accidental accidental);

    /// The forced accidental if some letter has it at this key (no natural F sharp); otherwise
    /// what the key signature spells, or the sharp or flat of the preference outside of it.
    static Accidental validateForcedAccidentalForMidi(int midi, Accidental forced, bool preferSharp,
                                                      int keyAccidentalCount);
};

} // namespace zarn
