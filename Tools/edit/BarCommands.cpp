// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <set>

namespace zarn::tool {

namespace {

constexpr double MostBars = zarn::MasterTrack::MaxBars;
constexpr double MostRepeats = 255;

/// What a rehearsal letter stands in: whether that is a circle.
const Choices &frameChoices()
{
    static const Choices choices = {choice("box", false), choice("circle", true)};
    return choices;
}

bool addBars(EditSession &session, const Values &values)
{
    return session.score().createBars(targetBar(session, values),
                                      static_cast<unsigned>(values.get(1, 1)));
}

bool setBarCount(EditSession &session, const Values &values)
{
    const unsigned present = session.model().masterTrack()->masterBarCount();
    const auto count = static_cast<unsigned>(values.get<int>(0));
    if (count == present)
        throw LineError(values.column(0), QStringLiteral("the score has this many bars already"));
    return count > present ? session.score().createBars(present, count - present)
                           : session.score().removeBarRange(count, present - 1);
}

bool removeBars(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().removeBarRange(bars.first, bars.last);
}

bool setTime(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().setMasterTimeSignature(bars.first, bars.last,
                                                  values.get<TimeSignature>(1));
}

bool setKey(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().setMasterKeySignature(bars.first, bars.last,
                                                 values.get<KeySignature>(1));
}

bool setFeel(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().setMasterTripletFeel(bars.first, bars.last,
                                                static_cast<TripletFeel>(values.get<int>(1)));
}

bool setFreeTime(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().setMasterBarFreeTime(bars.first, bars.last, values.get(1, true));
}

bool setDoubleBar(EditSession &session, const Values &values)
{
    return session.score().setMasterBarDoubleBar(targetBar(session, values), values.get(1, true));
}

bool setRepeatStart(EditSession &session, const Values &values)
{
    return session.score().setBarRepeatStart(targetBar(session, values), values.get(1, true));
}

bool setRepeatEnd(EditSession &session, const Values &values)
{
    if (values.get<int>(1) == 1)
        throw LineError(values.column(1),
                        QStringLiteral("a repeat is played at least twice; 0 removes it"));
    return session.score().setBarRepeatEnd(targetBar(session, values),
                                           static_cast<unsigned>(values.get<int>(1)));
}

bool setEndings(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    return session.score().setBarAlternateEndings(bars.first, bars.last,
                                                  static_cast<std::uint32_t>(values.get<int>(1)));
}

bool setMovementStart(EditSession &session, const Values &values)
{
    return session.score().setMasterBarMovementStart(targetBar(session, values),
                                                     values.get<bool>(1));
}

bool setDirection(EditSession &session, const Values &values)
{
    return session.score().setBarDirection(static_cast<DirectionMark>(values.get<int>(0)),
                                           values.get(1, -1));
}

bool setDirections(EditSession &session, const Values &values)
{
    std::set<DirectionMark> marks;
    for (const int number : values.get<std::vector<int>>(1))
        marks.insert(static_cast<DirectionMark>(number));
    return session.score().setBarDirections(static_cast<int>(targetBar(session, values)), marks);
}

bool setSection(EditSession &session, const Values &values)
{
    const int *const frame = values.option<int>(QStringLiteral("frame"));
    return session.score().setMasterBarSection(targetBar(session, values), values.get<QString>(1),
                                               values.get(2, QString()),
                                               frame != nullptr && *frame != 0);
}

bool unsetSection(EditSession &session, const Values &values)
{
    return session.score().unsetMasterBarSection(targetBar(session, values));
}

bool setClef(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const Where staff = targetStaff(session, values);
    return session.score().setClef(staff.track, staff.staff, bars.first, bars.last,
                                   static_cast<ClefType>(values.get<int>(1)));
}

} // namespace

const std::vector<Command> &barCommands()
{
    static const Parameter oneBar = {QStringLiteral("BAR"), Kind::Bar, Presence::Assumed};
    static const Parameter barGap = {QStringLiteral("BAR"), Kind::BarGap, Presence::Assumed};
    static const Parameter someBars = {QStringLiteral("BARS"), Kind::Bars, Presence::Assumed};
    static const Parameter onOff = {QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed};
    const auto choice = [](const char *name, const Choices &choices) {
        return Parameter{QLatin1String(name), Kind::Choice, Presence::Required, 0, 0, &choices};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("add-bars"),
         {barGap, {QStringLiteral("COUNT"), Kind::Whole, Presence::Optional, 1, MostBars}},
         QStringLiteral("Insert empty bars in front of a bar."),
         QStringLiteral("Score::createBars"),
         addBars},
        {QStringLiteral("bars"),
         {{QStringLiteral("COUNT"), Kind::Whole, Presence::Required, 1, MostBars}},
         QStringLiteral("Make the score this many bars long, by its end."),
         QStringLiteral("Score::createBars"),
         setBarCount},
        {QStringLiteral("remove-bars"),
         {someBars},
         QStringLiteral("Remove bars from all tracks."),
         QStringLiteral("Score::removeBarRange"),
         removeBars},
        {QStringLiteral("time"),
         {someBars, {QStringLiteral("TIME"), Kind::Time}},
         QStringLiteral("Set the time signature."),
         QStringLiteral("Score::setMasterTimeSignature"),
         setTime},
        {QStringLiteral("key"),
         {someBars, {QStringLiteral("KEY"), Kind::Key}},
         QStringLiteral("Set the key signature, at concert pitch."),
         QStringLiteral("Score::setMasterKeySignature"),
         setKey},
        {QStringLiteral("feel"),
         {someBars, choice("FEEL", feelChoices())},
         QStringLiteral("Set how pairs of short notes swing."),
         QStringLiteral("Score::setMasterTripletFeel"),
         setFeel},
        {QStringLiteral("free-time"),
         {someBars, onOff},
         QStringLiteral("Play bars in free time, or in time again."),
         QStringLiteral("Score::setMasterBarFreeTime"),
         setFreeTime},
        {QStringLiteral("double-bar"),
         {oneBar, onOff},
         QStringLiteral("End a bar with a double bar line."),
         QStringLiteral("Score::setMasterBarDoubleBar"),
         setDoubleBar},
        {QStringLiteral("repeat-start"),
         {oneBar, onOff},
         QStringLiteral("Begin a repeat at a bar."),
         QStringLiteral("Score::setBarRepeatStart"),
         setRepeatStart},
        {QStringLiteral("repeat-end"),
         {oneBar, {QStringLiteral("TIMES"), Kind::Whole, Presence::Required, 0, MostRepeats}},
         QStringLiteral("End a repeat that is played this many times in all; 0 for none."),
         QStringLiteral("Score::setBarRepeatEnd"),
         setRepeatEnd},
        {QStringLiteral("endings"),
         {someBars, {QStringLiteral("PASSES"), Kind::Passes}},
         QStringLiteral("Play bars only in some passes of a repeat."),
         QStringLiteral("Score::setBarAlternateEndings"),
         setEndings},
        {QStringLiteral("direction"),
         {choice("DIRECTION", directionChoices()),
          {QStringLiteral("BAR"), Kind::Bar, Presence::Optional}},
         QStringLiteral("Put a jump or its target at a bar; without a bar, remove it."),
         QStringLiteral("Score::setBarDirection"),
         setDirection},
        {QStringLiteral("directions"),
         {oneBar,
          {QStringLiteral("DIRECTIONS"), Kind::Several, Presence::Required, 0, 0,
           &directionChoices()}},
         QStringLiteral("Make these, and no others, the jumps and targets of a bar."),
         QStringLiteral("Score::setBarDirections"),
         setDirections},
        {QStringLiteral("movement"),
         {oneBar, onOff},
         QStringLiteral("Begin a movement at a bar: repeats and jumps stay inside of it."),
         QStringLiteral("Score::setMasterBarMovementStart"),
         setMovementStart},
        {QStringLiteral("section"),
         {oneBar,
          {QStringLiteral("LETTER"), Kind::Text},
          {QStringLiteral("TITLE"), Kind::Text, Presence::Optional}},
         QStringLiteral("Start a section of the form, its letter in a box or a circle."),
         QStringLiteral("Score::setMasterBarSection"),
         setSection,
         false,
         {{QStringLiteral("FRAME"), Kind::Choice, Presence::Optional, 0, 0, &frameChoices()}}},
        {QStringLiteral("no-section"),
         {oneBar},
         QStringLiteral("Remove the section mark of a bar."),
         QStringLiteral("Score::unsetMasterBarSection"),
         unsetSection},
        {QStringLiteral("clef"),
         {someBars, choice("CLEF", clefChoices())},
         QStringLiteral("Set the clef of bars in a staff."),
         QStringLiteral("Score::setClef"),
         setClef,
         true},
    };
    return commands;
}

} // namespace zarn::tool
