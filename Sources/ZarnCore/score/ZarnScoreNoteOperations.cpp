// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreNoteOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNote.h>
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNoteFromMidiAndString.h>
#include <ZarnCore/commands/Note/ZarnLetRingAssistant.h>
#include <ZarnCore/commands/Note/ZarnPalmMuteAssistant.h>
#include <ZarnCore/commands/Note/ZarnRemoveNonPitchedNoteFromMidiAndString.h>
#include <ZarnCore/commands/Note/ZarnRemoveNote.h>
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAccentFlag.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAntiAccent.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAttribute.h>
#include <ZarnCore/commands/Note/ZarnSetNoteFingering.h>
#include <ZarnCore/commands/Note/ZarnSetNoteLetring.h>
#include <ZarnCore/commands/Note/ZarnSetNoteMidiForString.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnament.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnement.h>
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>
#include <ZarnCore/commands/Note/ZarnSetNoteSoundingAccidental.h>
#include <ZarnCore/commands/Note/ZarnSetNoteTrill.h>
#include <ZarnCore/commands/Note/ZarnSetNoteVelocity.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNote.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteArtificialHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteBend.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteDead.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteFret.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteLeftHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteNaturalHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNotePalmMute.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteRightHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteShowStringNumber.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteVibrato.h>
#include <ZarnCore/commands/Note/ZarnShiftOneElement.h>
#include <ZarnCore/commands/Note/ZarnShiftOneString.h>
#include <ZarnCore/commands/Note/ZarnShiftSemitone.h>
#include <ZarnCore/commands/Note/ZarnSwitchNoteAccidental.h>

namespace zarn {

bool ScoreNoteOperations::setStringedNote(const ScoreModelIndex &index, int string, int fret)
{
    return execute<cmd::SetStringedNote>(*this, index, string, fret);
}

bool ScoreNoteOperations::setMIDINote(const ScoreModelIndex &index, int midi)
{
    return execute<cmd::SetMIDINote>(*this, index, midi);
}

bool ScoreNoteOperations::setMIDINote(const ScoreModelIndex &index, int midi,
                                      const PitchClass &spelling)
{
    return execute<cmd::SetMIDINote>(*this, index, midi, std::optional<PitchClass>(spelling));
}

bool ScoreNoteOperations::setNoteMidiForString(const ScoreModelIndex &index, int string, int midi)
{
    return execute<cmd::SetNoteMidiForString>(*this, index, string, midi);
}

bool ScoreNoteOperations::createNonPitchedNote(const ScoreModelIndex &index, int articulation)
{
    return execute<cmd::CreateNonPitchedNote>(*this, index, articulation);
}

bool ScoreNoteOperations::createNonPitchedNote(const ScoreModelIndex &index, int midi, int string)
{
    return execute<cmd::CreateNonPitchedNoteFromMidiAndString>(*this, index, midi, string);
}

bool ScoreNoteOperations::removeNonPitchedNote(const ScoreModelIndex &index, int midi, int string)
{
    return execute<cmd::RemoveNonPitchedNoteFromMidiAndString>(*this, index, midi, string);
}

bool ScoreNoteOperations::setStringedNoteFret(const ScoreModelRange &range, int fret)
{
    return execute<cmd::SetStringedNoteFret>(*this, range, fret);
}

bool ScoreNoteOperations::shiftOneString(const ScoreModelRange &range, Shift shift)
{
    return shift == Shift::Down ? execute<cmd::ShiftOneString<0>>(*this, range)
                                : execute<cmd::ShiftOneString<1>>(*this, range);
}

bool ScoreNoteOperations::shiftOneElement(const ScoreModelRange &range, Shift shift)
{
    return shift == Shift::Down ? execute<cmd::ShiftOneElement<0>>(*this, range)
                                : execute<cmd::ShiftOneElement<1>>(*this, range);
}

bool ScoreNoteOperations::shiftSemitone(const ScoreModelRange &range, int semitones)
{
    return execute<cmd::ShiftSemitone>(*this, range, semitones);
}

bool ScoreNoteOperations::setNoteSoundingAccidental(const ScoreModelRange &range,
                                                    NoteAccidental accidental)
{
    return execute<cmd::SetNoteSoundingAccidental>(*this, range, accidental);
}

bool ScoreNoteOperations::switchNoteAccidental(const ScoreModelRange &range)
{
    return execute<cmd::SwitchNoteAccidental>(*this, range);
}

bool ScoreNoteOperations::letRingAssistant(const ScoreModelRange &range, std::uint32_t strings,
                                           bool checked)
{
    return execute<cmd::LetRingAssistant>(*this, range, strings, checked);
}

bool ScoreNoteOperations::palmMuteAssistant(const ScoreModelRange &range, std::uint32_t strings,
                                            bool checked)
{
    return execute<cmd::PalmMuteAssistant>(*this, range, strings, checked);
}

bool ScoreNoteOperations::removeNote(const ScoreModelIndex &index)
{
    return execute<cmd::RemoveNote>(*this, index);
}

bool ScoreNoteOperations::setNoteRest(const ScoreModelRange &range)
{
    return execute<cmd::SetNoteRest>(*this, range);
}

bool ScoreNoteOperations::setNoteAttribute(const ScoreModelRange &range, NoteAttribute id,
                                           const AttributeValue &value)
{
    return execute<cmd::SetNoteAttribute>(*this, range, id, value);
}

bool ScoreNoteOperations::setNoteAccentFlag(const ScoreModelRange &range, AccentFlag flag,
                                            bool checked)
{
    return execute<cmd::SetNoteAccentFlag>(*this, range, flag, checked);
}

bool ScoreNoteOperations::setNoteOrnament(const ScoreModelRange &range, Ornament ornament,
                                          bool checked)
{
    return execute<cmd::SetNoteOrnament>(*this, range, ornament, checked);
}

bool ScoreNoteOperations::setNoteTrill(const ScoreModelRange &range, int key,
                                       RhythmValue::NoteValue speed)
{
    return execute<cmd::SetNoteTrill>(*this, range, key, speed);
}

bool ScoreNoteOperations::setStringedNoteBend(const ScoreModelRange &range, const Bend &bend)
{
    return execute<cmd::SetStringedNoteBend>(*this, range, bend);
}

bool ScoreNoteOperations::setStringedNoteNaturalHarmonic(const ScoreModelRange &range, bool checked,
                                                         unsigned partial)
{
    return execute<cmd::SetStringedNoteNaturalHarmonic>(*this, range, checked, partial);
}

bool ScoreNoteOperations::setStringedNoteArtificialHarmonic(const ScoreModelRange &range,
                                                            HarmonicType type, unsigned partial)
{
    return execute<cmd::SetStringedNoteArtificialHarmonic>(*this, range, type, partial);
}

bool ScoreNoteOperations::setNoteVelocity(const ScoreModelRange &range, unsigned velocity)
{
    return execute<cmd::SetNoteVelocity>(*this, range, velocity);
}

bool ScoreNoteOperations::setNoteAntiAccent(const ScoreModelRange &range, AntiAccent accent)
{
    return execute<cmd::SetNoteAntiAccent>(*this, range, accent);
}

bool ScoreNoteOperations::setNoteOrnement(const ScoreModelRange &range, Ornament ornament)
{
    return execute<cmd::SetNoteOrnement>(*this, range, ornament);
}

bool ScoreNoteOperations::setNoteLetring(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetNoteLetring>(*this, range, checked);
}

bool ScoreNoteOperations::setStringedNotePalmMute(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetStringedNotePalmMute>(*this, range, checked);
}

bool ScoreNoteOperations::setStringedNoteDead(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetStringedNoteDead>(*this, range, checked);
}

bool ScoreNoteOperations::setStringedNoteVibrato(const ScoreModelRange &range, Vibrato vibrato)
{
    return execute<cmd::SetStringedNoteVibrato>(*this, range, vibrato);
}

bool ScoreNoteOperations::setStringedNoteLeftHandTapping(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetStringedNoteLeftHandTapping>(*this, range, checked);
}

bool ScoreNoteOperations::setStringedNoteRightHandTapping(const ScoreModelRange &range,
                                                          bool checked)
{
    return execute<cmd::SetStringedNoteRightHandTapping>(*this, range, checked);
}

bool ScoreNoteOperations::setStringedNoteShowStringNumber(const ScoreModelRange &range,
                                                          bool checked)
{
    return execute<cmd::SetStringedNoteShowStringNumber>(*this, range, checked);
}

bool ScoreNoteOperations::setNoteFingering(const ScoreModelRange &range, Hand hand,
                                           Fingering finger)
{
    return hand == Hand::Left ? execute<cmd::SetNoteFingering<0>>(*this, range, finger)
                              : execute<cmd::SetNoteFingering<1>>(*this, range, finger);
}

bool ScoreNoteOperations::automaticFingerPositioning(
    const ScoreModelRange &range, const fingering::FingeringOptions &options,
    std::shared_ptr<fingering::FingeringReport> report)
{
    return execute<cmd::AutomaticFingerPositioning>(*this, range, options, std::move(report));
}

} // namespace zarn
