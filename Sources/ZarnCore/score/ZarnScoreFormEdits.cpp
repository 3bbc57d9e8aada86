// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarAlternateEndings.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatEnd.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatStart.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarDoubleBar.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarFreeTime.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarMovementStart.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarSection.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterKeySignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTimeSignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTripletFeel.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirection.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirections.h>

namespace zarn {

bool Score::setMasterTimeSignature(unsigned first, unsigned last, const TimeSignature &signature)
{
    return execute<cmd::SetMasterTimeSignature>(*this, first, last, signature);
}

bool Score::setMasterKeySignature(unsigned first, unsigned last, const KeySignature &signature)
{
    return execute<cmd::SetMasterKeySignature>(*this, first, last, signature);
}

bool Score::setMasterTripletFeel(unsigned first, unsigned last, TripletFeel feel)
{
    return execute<cmd::SetMasterTripletFeel>(*this, first, last, feel);
}

bool Score::setMasterBarFreeTime(unsigned first, unsigned last, bool isFreeTime)
{
    return execute<cmd::SetMasterBarFreeTime>(*this, first, last, isFreeTime);
}

bool Score::setMasterBarDoubleBar(unsigned bar, bool hasDoubleBar)
{
    return execute<cmd::SetMasterBarDoubleBar>(*this, bar, hasDoubleBar);
}

bool Score::setBarRepeatStart(unsigned bar, bool isRepeatStart)
{
    return execute<cmd::SetBarRepeatStart>(*this, bar, isRepeatStart);
}

bool Score::setBarRepeatEnd(unsigned bar, unsigned count)
{
    return execute<cmd::SetBarRepeatEnd>(*this, bar, count);
}

bool Score::setBarAlternateEndings(unsigned first, unsigned last, std::uint32_t passes)
{
    return execute<cmd::SetBarAlternateEndings>(*this, first, last, passes);
}

bool Score::setMasterBarMovementStart(unsigned bar, bool isMovementStart)
{
    return execute<cmd::SetMasterBarMovementStart>(*this, bar, isMovementStart);
}

bool Score::setBarDirection(DirectionMark mark, int bar)
{
    return execute<cmd::SetBarDirection>(*this, mark, bar);
}

bool Score::setBarDirections(int bar, const std::set<DirectionMark> &marks)
{
    return execute<cmd::SetBarDirections>(*this, bar, marks);
}

bool Score::setMasterBarSection(unsigned bar, const QString &letter, const QString &text)
{
    return execute<cmd::SetMasterBarSection>(*this, bar,
                                             Section{letter.toStdString(), text.toStdString()});
}

bool Score::unsetMasterBarSection(unsigned bar)
{
    return execute<cmd::SetMasterBarSection>(*this, bar, Section());
}

} // namespace zarn
