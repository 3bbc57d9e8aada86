// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreBeatOperations.h>

#include <ZarnCore/commands/Beat/ZarnClearBeats.h>
#include <ZarnCore/commands/Beat/ZarnCopyBeatToEOB.h>
#include <ZarnCore/commands/Beat/ZarnCreateBeat.h>
#include <ZarnCore/commands/Beat/ZarnIncrementBeatDuration.h>
#include <ZarnCore/commands/Beat/ZarnIncrementBeatSecondaryAttribute.h>
#include <ZarnCore/commands/Beat/ZarnRemoveBeats.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatArpeggio.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatAttributes.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatBarre.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatDeadSlapped.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatDynamic.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatFadding.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatFreeText.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatGolpe.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatGraceNotes.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatOttavia.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatPickStroke.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRasgueado.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatSlashed.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTimer.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTremolo.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTuplet.h>
#include <ZarnCore/commands/Beat/ZarnSetBrush.h>
#include <ZarnCore/commands/Beat/ZarnSetChord.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteAugmentationDot.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteDuration.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteDurationAndVelocity.h>
#include <ZarnCore/commands/Beat/ZarnSetStemOrientations.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatBassAttack.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatVibrato.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatWhammyBar.h>
#include <ZarnCore/commands/Beat/ZarnSetWah.h>
#include <ZarnCore/commands/Beat/ZarnSwitchBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnUnsetBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnUnsetChord.h>
#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>
#include <ZarnCore/commands/Execute.h>

namespace zarn {

bool ScoreBeatOperations::createBeat(const ScoreModelIndex &index, const RhythmValue &rhythm)
{
    return execute<cmd::CreateBeat>(*this, index, rhythm);
}

bool ScoreBeatOperations::writeBeats(unsigned track, unsigned staff,
                                     std::vector<WrittenStretch> stretches)
{
    return execute<cmd::WriteBeats>(*this, track, staff, std::move(stretches));
}

bool ScoreBeatOperations::removeBeats(const ScoreModelRange &range)
{
    return execute<cmd::RemoveBeats>(*this, range);
}

bool ScoreBeatOperations::clearBeats(const ScoreModelRange &range)
{
    return execute<cmd::ClearBeats>(*this, range);
}

bool ScoreBeatOperations::copyBeatToEOB(const ScoreModelIndex &index)
{
    return execute<cmd::CopyBeatToEOB>(*this, index);
}

bool ScoreBeatOperations::setBeatDeadSlapped(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetBeatDeadSlapped>(*this, range, checked);
}

bool ScoreBeatOperations::setBeatGraceNotes(const ScoreModelRange &range, GraceType type)
{
    return execute<cmd::SetBeatGraceNotes>(*this, range, type);
}

bool ScoreBeatOperations::setBeatRhythm(const ScoreModelRange &range, const RhythmValue &rhythm)
{
    return execute<cmd::SetBeatRhythm>(*this, range, rhythm);
}

bool ScoreBeatOperations::setBeatTuplet(const ScoreModelRange &range,
                                        RhythmValue::TupletRatio outer,
                                        RhythmValue::TupletRatio inner)
{
    return execute<cmd::SetBeatTuplet>(*this, range, outer, inner);
}

bool ScoreBeatOperations::incrementBeatDuration(const ScoreModelRange &range, int steps)
{
    return execute<cmd::IncrementBeatDuration>(*this, range, steps);
}

bool ScoreBeatOperations::setNoteDuration(const ScoreModelRange &range,
                                          RhythmValue::NoteValue noteValue)
{
    return execute<cmd::SetNoteDuration>(*this, range, noteValue);
}

bool ScoreBeatOperations::setNoteAugmentationDot(const ScoreModelRange &range, unsigned dots)
{
    return execute<cmd::SetNoteAugmentationDot>(*this, range, dots);
}

bool ScoreBeatOperations::setNoteDurationAndVelocity(const ScoreModelIndex &index,
                                                     const RhythmValue &rhythm, unsigned velocity)
{
    return execute<cmd::SetNoteDurationAndVelocity>(*this, index, rhythm, velocity);
}

bool ScoreBeatOperations::setChord(const ScoreModelIndex &beat, const ChordMark &chord)
{
    return execute<cmd::SetChord>(*this, beat, chord);
}

bool ScoreBeatOperations::unsetChord(const ScoreModelRange &range)
{
    return execute<cmd::UnsetChord>(*this, range);
}

bool ScoreBeatOperations::setBeatDynamic(const ScoreModelRange &range, NoteDynamic dynamic)
{
    return execute<cmd::SetBeatDynamic>(*this, range, dynamic);
}

bool ScoreBeatOperations::setBeatAttribute(const ScoreModelRange &range, BeatAttribute id,
                                           const AttributeValue &value)
{
    return execute<cmd::SetBeatAttribute>(*this, range, id, value);
}

bool ScoreBeatOperations::setBeatAttributes(const ScoreModelRange &range,
                                            const std::map<BeatAttribute, AttributeValue> &values)
{
    return execute<cmd::SetBeatAttributes>(*this, range, values);
}

bool ScoreBeatOperations::switchBeatAttribute(const ScoreModelRange &range, BeatAttribute id)
{
    return execute<cmd::SwitchBeatAttribute>(*this, range, id);
}

bool ScoreBeatOperations::unsetBeatAttribute(const ScoreModelRange &range, BeatAttribute id)
{
    return execute<cmd::UnsetBeatAttribute>(*this, range, id);
}

bool ScoreBeatOperations::incrementBeatSecondaryAttribute(const ScoreModelRange &range,
                                                          BeatAttribute id, int steps)
{
    return execute<cmd::IncrementBeatSecondaryAttribute>(*this, range, id, steps);
}

bool ScoreBeatOperations::setBeatFreeText(const ScoreModelRange &range, const QString &text)
{
    return execute<cmd::SetBeatFreeText>(*this, range, text);
}

bool ScoreBeatOperations::setBeatArpeggio(const ScoreModelRange &range, Direction direction,
                                          unsigned length, StrumAnchor anchor)
{
    return execute<cmd::SetBeatArpeggio>(*this, range, direction, length, anchor);
}

bool ScoreBeatOperations::setBrush(const ScoreModelRange &range, Direction direction,
                                   unsigned length, StrumAnchor anchor)
{
    return execute<cmd::SetBrush>(*this, range, direction, length, anchor);
}

bool ScoreBeatOperations::setBeatFadding(const ScoreModelRange &range, Fadding fadding)
{
    return execute<cmd::SetBeatFadding>(*this, range, fadding);
}

bool ScoreBeatOperations::setBeatOttavia(const ScoreModelRange &range, Ottavia ottavia)
{
    return execute<cmd::SetBeatOttavia>(*this, range, ottavia);
}

bool ScoreBeatOperations::setBeatTimer(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetBeatTimer>(*this, range, checked);
}

bool ScoreBeatOperations::setBeatSlashed(const ScoreModelRange &range, bool checked)
{
    return execute<cmd::SetBeatSlashed>(*this, range, checked);
}

bool ScoreBeatOperations::setBeatPickStroke(const ScoreModelRange &range, Direction direction)
{
    return execute<cmd::SetBeatPickStroke>(*this, range, direction);
}

bool ScoreBeatOperations::setBeatRasgueado(const ScoreModelRange &range, RasgueadoType type)
{
    return execute<cmd::SetBeatRasgueado>(*this, range, type);
}

bool ScoreBeatOperations::setBeatGolpe(const ScoreModelRange &range, ZarnGolpeType type)
{
    return execute<cmd::SetBeatGolpe>(*this, range, type);
}

bool ScoreBeatOperations::setBeatTremolo(const ScoreModelRange &range, unsigned speed)
{
    return execute<cmd::SetBeatTremolo>(*this, range, speed);
}

bool ScoreBeatOperations::setBeatBarre(const ScoreModelRange &range, const Barre &barre)
{
    return execute<cmd::SetBeatBarre>(*this, range, barre);
}

bool ScoreBeatOperations::setStringedBeatBassAttack(const ScoreModelRange &range, BassAttack attack)
{
    return execute<cmd::SetStringedBeatBassAttack>(*this, range, attack);
}

bool ScoreBeatOperations::setStringedBeatVibrato(const ScoreModelRange &range, Vibrato vibrato)
{
    return execute<cmd::SetStringedBeatVibrato>(*this, range, vibrato);
}

bool ScoreBeatOperations::setStringedBeatWhammyBar(const ScoreModelRange &range,
                                                   const WhammyBar &bar)
{
    return execute<cmd::SetStringedBeatWhammyBar>(*this, range, bar);
}

bool ScoreBeatOperations::setWah(const ScoreModelRange &range, WahWah wah)
{
    return execute<cmd::SetWah>(*this, range, wah);
}

bool ScoreBeatOperations::setStemOrientations(const ScoreModelRange &range,
                                              ZarnStemOrientation orientation)
{
    return execute<cmd::SetStemOrientations>(*this, range, orientation);
}

} // namespace zarn
