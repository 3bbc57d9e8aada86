// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreNoteOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAccentFlag.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAntiAccent.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAttribute.h>
#include <ZarnCore/commands/Note/ZarnSetNoteFingering.h>
#include <ZarnCore/commands/Note/ZarnSetNoteLetring.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnament.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnement.h>
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>
#include <ZarnCore/commands/Note/ZarnSetNoteTrill.h>
#include <ZarnCore/commands/Note/ZarnSetNoteVelocity.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNote.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteArtificialHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteBend.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteDead.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteLeftHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteNaturalHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNotePalmMute.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteRightHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteShowStringNumber.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteVibrato.h>

namespace zarn {

bool ScoreNoteOperations::setStringedNote(const ScoreModelIndex &index, int string, int fret)
{
    return execute<cmd::SetStringedNote>(*this, index, string, fret);
}

bool ScoreNoteOperations::setMIDINote(const ScoreModelIndex &index, int midi)
{
    return execute<cmd::SetMIDINote>(*this, index, midi);
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
