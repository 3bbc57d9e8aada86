// SPDX-License-Identifier: MIT
#include "edit/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnScoreModelIndex.h>
#include <ZarnCore/model/ZarnScoreModelRange.h>

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;

ScoreModelIndex indexOf(EditSession &session, const Where &where, const BeatPlace &place)
{
    return ScoreModelIndex(session.score().scoreModel().get(), static_cast<int>(where.track),
                           static_cast<int>(place.bar), static_cast<int>(place.beat), where.voice,
                           where.staff);
}

/// How many beats the voice has where a command works.
unsigned beatCount(EditSession &session, const Where &where, unsigned bar)
{
    const auto track = session.model().track(where.track);
    const auto held = track ? track->bar(bar, where.staff) : nullptr;
    const auto voice = held ? held->voice(where.voice) : nullptr;
    return voice ? voice->beatCount() : 0;
}

enum class Allowed { Beats, BeatsAndEnd };

/// Raises unless the first parameter's beat is there, or is the place behind the last one where
/// that is allowed. Inside a macro nobody knows yet.
void requireBeat(EditSession &session, const Values &values, const BeatPlace &place,
                 Allowed allowed = Allowed::Beats)
{
    const unsigned count = beatCount(session, values.where(), place.bar);
    const bool isEnd = allowed == Allowed::BeatsAndEnd && place.beat == count;
    if (session.openMacros() > 0 || place.beat < count || isEnd)
        return;
    const QString bar = QString::number(place.bar + 1);
    const QString voice = QStringLiteral("there is no beat %1:%2; voice %3 of bar %1 has ")
                              .arg(bar)
                              .arg(place.beat + 1)
                              .arg(values.where().voice + 1);
    throw LineError(values.column(0),
                    voice
                        + (count == 0
                               ? QStringLiteral("none, add-beat %1:1 quarter makes one").arg(bar)
                               : QStringLiteral("%1:1 to %1:%2").arg(bar).arg(count)));
}

ScoreModelRange rangeOf(EditSession &session, const Values &values)
{
    const auto &beats = values.get<BeatRange>(0);
    requireBeat(session, values, beats.first);
    requireBeat(session, values, beats.last);
    const ScoreModelIndex first = indexOf(session, values.where(), beats.first);
    const ScoreModelIndex last = indexOf(session, values.where(), beats.last);
    return first == last ? ScoreModelRange(first)
                         : ScoreModelRange(first, last, SelectionMode::MultiSelection);
}

bool addBeat(EditSession &session, const Values &values)
{
    const auto &place = values.get<BeatPlace>(0);
    requireBeat(session, values, place, Allowed::BeatsAndEnd);
    return session.score().createBeat(indexOf(session, values.where(), place),
                                      values.get<RhythmValue>(1));
}

bool removeBeats(EditSession &session, const Values &values)
{
    return session.score().removeBeats(rangeOf(session, values));
}

bool setFret(EditSession &session, const Values &values)
{
    const auto &place = values.get<BeatPlace>(0);
    requireBeat(session, values, place);
    return session.score().setStringedNote(indexOf(session, values.where(), place),
                                           values.get<int>(1), values.get<int>(2));
}

bool setPitch(EditSession &session, const Values &values)
{
    const auto &place = values.get<BeatPlace>(0);
    requireBeat(session, values, place);
    ScoreModelIndex index = indexOf(session, values.where(), place);
    if (values.has(2))
        index.setNoteMidi(static_cast<std::uint32_t>(values.get<PitchValue>(2).midi));
    return session.score().setMIDINote(index, values.get<PitchValue>(1).midi);
}

bool setRest(EditSession &session, const Values &values)
{
    return session.score().setNoteRest(rangeOf(session, values));
}

bool setRhythm(EditSession &session, const Values &values)
{
    return session.score().setBeatRhythm(rangeOf(session, values), values.get<RhythmValue>(1));
}

bool setDynamic(EditSession &session, const Values &values)
{
    const auto value = static_cast<NoteDynamic::Value>(values.get<int>(1));
    return session.score().setBeatDynamic(rangeOf(session, values), NoteDynamic(value));
}

} // namespace

const std::vector<Command> &noteCommands()
{
    static const Parameter beat = {QStringLiteral("BEAT"), Kind::Beat};
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats};
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
          {QStringLiteral("STRING"), Kind::String},
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
