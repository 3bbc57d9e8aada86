// SPDX-License-Identifier: MIT
#include "edit/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/Targets.h"

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;

bool addBeat(EditSession &session, const Values &values)
{
    return session.score().createBeat(targetBeat(session, values, Allowed::BeatsAndEnd),
                                      values.get<RhythmValue>(1));
}

bool removeBeats(EditSession &session, const Values &values)
{
    return session.score().removeBeats(targetBeats(session, values));
}

bool setFret(EditSession &session, const Values &values)
{
    return session.score().setStringedNote(targetBeat(session, values),
                                           targetString(session, values, 1), values.get<int>(2));
}

bool setPitch(EditSession &session, const Values &values)
{
    ScoreModelIndex index = targetBeat(session, values);
    if (values.has(2))
        index.setNoteMidi(static_cast<std::uint32_t>(values.get<PitchValue>(2).midi));
    return session.score().setMIDINote(index, values.get<PitchValue>(1).midi);
}

bool setRest(EditSession &session, const Values &values)
{
    return session.score().setNoteRest(targetBeats(session, values));
}

bool setRhythm(EditSession &session, const Values &values)
{
    return session.score().setBeatRhythm(targetBeats(session, values), values.get<RhythmValue>(1));
}

bool setDynamic(EditSession &session, const Values &values)
{
    const auto value = static_cast<NoteDynamic::Value>(values.get<int>(1));
    return session.score().setBeatDynamic(targetBeats(session, values), NoteDynamic(value));
}

} // namespace

const std::vector<Command> &noteCommands()
{
    static const Parameter beat = {QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed};
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter rhythm = {QStringLiteral("RHYTHM"), Kind::Rhythm};
    static const std::vector<Command> commands = {
        {QStringLiteral("add-beat"),
         {beat, rhythm},
         QStringLiteral("Insert a rest in front of a beat or behind the last one."),
         QStringLiteral("Score::createBeat"),
         addBeat,
         true},
        {QStringLiteral("remove-beats"),
         {beats},
         QStringLiteral("Remove beats; those behind them move up."),
         QStringLiteral("Score::removeBeats"),
         removeBeats,
         true},
        {QStringLiteral("fret"),
         {beat,
          {QStringLiteral("STRING"), Kind::String, Presence::Assumed},
          {QStringLiteral("FRET"), Kind::Whole, Presence::Required, 0, HighestFret}},
         QStringLiteral("Write a fret on a string of a beat."),
         QStringLiteral("Score::setStringedNote"),
         setFret,
         true},
        {QStringLiteral("pitch"),
         {beat,
          {QStringLiteral("PITCH"), Kind::Pitch},
          {QStringLiteral("INSTEAD"), Kind::Pitch, Presence::Optional}},
         QStringLiteral("Write a note on a beat, beside its others or in place of one."),
         QStringLiteral("Score::setMIDINote"),
         setPitch,
         true},
        {QStringLiteral("rest"),
         {beats},
         QStringLiteral("Make rests of beats."),
         QStringLiteral("Score::setNoteRest"),
         setRest,
         true},
        {QStringLiteral("rhythm"),
         {beats, rhythm},
         QStringLiteral("Give beats a note value."),
         QStringLiteral("Score::setBeatRhythm"),
         setRhythm,
         true},
        {QStringLiteral("dynamic"),
         {beats,
          {QStringLiteral("DYNAMIC"), Kind::Choice, Presence::Required, 0, 0, &dynamicChoices()}},
         QStringLiteral("Set how loud beats are played."),
         QStringLiteral("Score::setBeatDynamic"),
         setDynamic,
         true},
    };
    return commands;
}

} // namespace zarn::tool
