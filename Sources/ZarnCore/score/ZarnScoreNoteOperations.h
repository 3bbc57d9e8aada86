// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <cstdint>
#include <memory>

namespace zarn {

namespace fingering {
struct FingeringOptions;
struct FingeringReport;
} // namespace fingering

class AttributeValue;
class NoteAccidental;
class PitchClass;
class ScoreModelIndex;
class ScoreModelRange;
struct Bend;
enum class NoteAttribute : std::uint8_t;

/// What can be done to the notes of a score. Indexes and ranges are taken as places of this score,
/// whatever their model. The commands of the same names, in `cmd`, say more. Each answers whether
/// it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreNoteOperations {
public:
    /// Writes a fret on a string (0 the lowest) of a beat, in place of what the string has there.
    bool setStringedNote(const ScoreModelIndex &index, int string, int fret);

    /// Writes a pitch on a beat: in place of the note that the index names by its MIDI key, else
    /// beside those that are there.
    bool setMIDINote(const ScoreModelIndex &index, int midi);

    /// The same, spelled in a way of its own.
    bool setMIDINote(const ScoreModelIndex &index, int midi, const PitchClass &spelling);

    /// Writes a pitch on a string of a beat, in place of what the string has there.
    bool setNoteMidiForString(const ScoreModelIndex &index, int string, int midi);

    /// Writes a percussion note by the number of its articulation in the instrument set.
    bool createNonPitchedNote(const ScoreModelIndex &index, int articulation);

    /// Writes the percussion note that a key enters on a line of a drum tablature (0 the lowest),
    /// or takes it off.
    bool createNonPitchedNote(const ScoreModelIndex &index, int midi, int string);
    bool removeNonPitchedNote(const ScoreModelIndex &index, int midi, int string);

    /// Takes the note that the index names off its beat, which is a rest without others.
    bool removeNote(const ScoreModelIndex &index);

    /// Makes rests of the beats of a range.
    bool setNoteRest(const ScoreModelRange &range);

    /// Finds strings and frets for the notes of a range as a player would, and reports what no hand
    /// can play; see `cmd::AutomaticFingerPositioning`.
    bool automaticFingerPositioning(const ScoreModelRange &range,
                                    const fingering::FingeringOptions &options,
                                    std::shared_ptr<fingering::FingeringReport> report = nullptr);

    // Moving notes. Which notes a range means is said below; what they are tied to goes along, and
    // when one of them cannot move, none does.

    /// Another fret of the string that each note has.
    bool setStringedNoteFret(const ScoreModelRange &range, int fret);

    /// The next string, at the same pitch.
    bool shiftOneString(const ScoreModelRange &range, Shift shift);

    /// Percussion: the next place of the staff that plays something.
    bool shiftOneElement(const ScoreModelRange &range, Shift shift);

    /// Up or, negative, down, by at most 12 semitones.
    bool shiftSemitone(const ScoreModelRange &range, int semitones);

    /// Another accidental on the same letter: another pitch.
    bool setNoteSoundingAccidental(const ScoreModelRange &range, NoteAccidental accidental);

    /// The next spelling of the same pitch.
    bool switchNoteAccidental(const ScoreModelRange &range);

    /// Lets the notes on some strings (bit 0 the lowest) ring, or mutes them with the palm, where
    /// the passage asks for it; see the commands.
    bool letRingAssistant(const ScoreModelRange &range, std::uint32_t strings, bool checked);
    bool palmMuteAssistant(const ScoreModelRange &range, std::uint32_t strings, bool checked);

    // Attributes. A range that is one place means the note that it names, any other all notes of
    // its beats.

    bool setNoteAttribute(const ScoreModelRange &range, NoteAttribute id,
                          const AttributeValue &value);
    bool setNoteAccentFlag(const ScoreModelRange &range, AccentFlag flag, bool checked);
    bool setNoteOrnament(const ScoreModelRange &range, Ornament ornament, bool checked);
    bool setNoteTrill(const ScoreModelRange &range, int key,
                      RhythmValue::NoteValue speed = RhythmValue::NoteValue::ThirtySecond);
    bool setStringedNoteBend(const ScoreModelRange &range, const Bend &bend);
    bool setStringedNoteNaturalHarmonic(const ScoreModelRange &range, bool checked,
                                        unsigned partial = 0);
    bool setStringedNoteArtificialHarmonic(const ScoreModelRange &range, HarmonicType type,
                                           unsigned partial = 2);
    bool setNoteFingering(const ScoreModelRange &range, Hand hand, Fingering finger);
    bool setNoteVelocity(const ScoreModelRange &range, unsigned velocity);
    bool setNoteAntiAccent(const ScoreModelRange &range, AntiAccent accent);
    bool setNoteOrnement(const ScoreModelRange &range, Ornament ornament);
    bool setNoteLetring(const ScoreModelRange &range, bool checked);
    bool setStringedNotePalmMute(const ScoreModelRange &range, bool checked);
    bool setStringedNoteDead(const ScoreModelRange &range, bool checked);
    bool setStringedNoteVibrato(const ScoreModelRange &range, Vibrato vibrato);
    bool setStringedNoteLeftHandTapping(const ScoreModelRange &range, bool checked);
    bool setStringedNoteRightHandTapping(const ScoreModelRange &range, bool checked);
    bool setStringedNoteShowStringNumber(const ScoreModelRange &range, bool checked);

protected:
    ScoreNoteOperations() = default;
    ~ScoreNoteOperations() = default;
};

} // namespace zarn
