// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreFormOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/MasterBar/ZarnEditFermata.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarAlternateEndings.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatEnd.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatStart.h>
#include <ZarnCore/commands/MasterBar/ZarnSetFermata.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttribute.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttributes.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarBeamGroups.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarDoubleBar.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarFreeTime.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarMovementStart.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarSection.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterKeySignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTimeSignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTripletFeel.h>
#include <ZarnCore/commands/MasterBar/ZarnUnsetMasterBarAttributes.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirection.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirections.h>

namespace zarn {

bool ScoreFormOperations::setMasterTimeSignature(unsigned first, unsigned last,
                                                 const TimeSignature &signature)
{
    return execute<cmd::SetMasterTimeSignature>(*this, first, last, signature);
}

bool ScoreFormOperations::setMasterKeySignature(unsigned first, unsigned last,
                                                const KeySignature &signature)
{
    return execute<cmd::SetMasterKeySignature>(*this, first, last, signature);
}

bool ScoreFormOperations::setMasterTripletFeel(unsigned first, unsigned last, TripletFeel feel)
{
    return execute<cmd::SetMasterTripletFeel>(*this, first, last, feel);
}

bool ScoreFormOperations::setMasterBarFreeTime(unsigned first, unsigned last, bool isFreeTime)
{
    return execute<cmd::SetMasterBarFreeTime>(*this, first, last, isFreeTime);
}

bool ScoreFormOperations::setMasterBarDoubleBar(unsigned bar, bool hasDoubleBar)
{
    return execute<cmd::SetMasterBarDoubleBar>(*this, bar, hasDoubleBar);
}

bool ScoreFormOperations::setBarRepeatStart(unsigned bar, bool isRepeatStart)
{
    return execute<cmd::SetBarRepeatStart>(*this, bar, isRepeatStart);
}

bool ScoreFormOperations::setBarRepeatEnd(unsigned bar, unsigned count)
{
    return execute<cmd::SetBarRepeatEnd>(*this, bar, count);
}

bool ScoreFormOperations::setBarAlternateEndings(unsigned first, unsigned last,
                                                 std::uint32_t passes)
{
    return execute<cmd::SetBarAlternateEndings>(*this, first, last, passes);
}

bool ScoreFormOperations::setMasterBarMovementStart(unsigned bar, bool isMovementStart)
{
    return execute<cmd::SetMasterBarMovementStart>(*this, bar, isMovementStart);
}

bool ScoreFormOperations::setMasterBarBeamGroups(unsigned first, unsigned last,
                                                 const BeamGroups &groups)
{
    return execute<cmd::SetMasterBarBeamGroups>(*this, first, last, groups);
}

bool ScoreFormOperations::setFermata(const ScoreModelIndex &beat, Fermata kind)
{
    return execute<cmd::SetFermata>(*this, beat, kind);
}

bool ScoreFormOperations::editFermata(unsigned bar, const utils::rational &position,
                                      const FermataMark &mark)
{
    return execute<cmd::EditFermata>(*this, bar, position, mark);
}

bool ScoreFormOperations::setBarDirection(DirectionMark mark, int bar)
{
    return execute<cmd::SetBarDirection>(*this, mark, bar);
}

bool ScoreFormOperations::setBarDirections(int bar, const std::set<DirectionMark> &marks)
{
    return execute<cmd::SetBarDirections>(*this, bar, marks);
}

bool ScoreFormOperations::setMasterBarSection(unsigned bar, const QString &letter,
                                              const QString &text, bool isCircled)
{
    return execute<cmd::SetMasterBarSection>(
        *this, bar, Section{letter.toStdString(), text.toStdString(), isCircled});
}

bool ScoreFormOperations::unsetMasterBarSection(unsigned bar)
{
    return execute<cmd::SetMasterBarSection>(*this, bar, Section());
}

bool ScoreFormOperations::setMasterBarAttribute(unsigned first, unsigned last,
                                                MasterBarAttribute id, const AttributeValue &value)
{
    return execute<cmd::SetMasterBarAttribute>(*this, first, last, id, value);
}

bool ScoreFormOperations::setMasterBarAttributes(
    unsigned first, unsigned last, const std::map<MasterBarAttribute, AttributeValue> &values)
{
    return execute<cmd::SetMasterBarAttributes>(*this, first, last, values);
}

bool ScoreFormOperations::unsetMasterBarAttributes(unsigned first, unsigned last,
                                                   const std::set<MasterBarAttribute> &ids)
{
    return execute<cmd::UnsetMasterBarAttributes>(*this, first, last, ids);
}

} // namespace zarn
