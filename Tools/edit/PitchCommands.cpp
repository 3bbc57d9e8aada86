// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QStringList>

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;
constexpr int HighestArticulation = 2047;
constexpr int HighestKey = 127;
constexpr int MostDots = 3;
constexpr int MostLines = 16;

const Choices &shiftChoices()
{
    static const Choices choices = {choice("down", Shift::Down), choice("up", Shift::Up)};
    return choices;
}

const Choices &accidentalChoices()
{
    using Value = NoteAccidental::Value;
    static const Choices choices = {choice("natural", Value::Natural),
                                    choice("sharp", Value::Sharp), choice("flat", Value::Flat),
                                    choice("double-sharp", Value::DoubleSharp),
                                    choice("double-flat", Value::DoubleFlat)};
    return choices;
}

const Choices &refingeringChoices()
{
    static const Choices choices = {choice("keep-strings", Refingering::KeepStrings),
                                    choice("refinger", Refingering::FindAnew)};
    return choices;
}

// Pitches.

bool transposeTrack(EditSession &session, const Values &values)
{
    const unsigned track = values.where().track;
    if (session.score().transposeTrack(track, values.get<int>(0),
                                       static_cast<Refingering>(values.get(1, 0))))
        return true;
    throw LineError(values.column(0),
                    QStringLiteral("track %1 has no pitches, or one that would be too low or too "
                                   "high for MIDI")
                        .arg(track + 1));
}

bool transposeScore(EditSession &session, const Values &values)
{
    return session.score().transposeAllTracks(values.get<int>(0), values.get(1, true));
}

bool setTransposition(EditSession &session, const Values &values)
{
    return session.score().setTrackTranspositionOffset(values.where().track, values.get<int>(0));
}

bool shiftPitch(EditSession &session, const Values &values)
{
    if (session.score().shiftSemitone(targetNotes(session, values), values.get<int>(1)))
        return true;
    throw LineError(
        values.column(1),
        QStringLiteral("there is no note that can move, or one has no string to go to"));
}

bool shiftString(EditSession &session, const Values &values)
{
    const auto shift = static_cast<Shift>(values.get<int>(1));
    if (session.score().shiftOneString(targetNotes(session, values), shift))
        return true;
    throw LineError(values.column(1),
                    QStringLiteral("there is no note on a string, or for one the next string is "
                                   "taken, missing, or has not its pitch"));
}

bool shiftDrum(EditSession &session, const Values &values)
{
    return session.score().shiftOneElement(targetNotes(session, values),
                                           static_cast<Shift>(values.get<int>(1)));
}

bool setAccidental(EditSession &session, const Values &values)
{
    return session.score().setNoteSoundingAccidental(
        targetNotes(session, values), static_cast<NoteAccidental::Value>(values.get<int>(1)));
}

bool respell(EditSession &session, const Values &values)
{
    return session.score().switchNoteAccidental(targetNotes(session, values));
}

bool refret(EditSession &session, const Values &values)
{
    return session.score().setStringedNoteFret(targetNotes(session, values), values.get<int>(1));
}

/// A pitch as it sounds goes on a string.
bool setStringPitch(EditSession &session, const Values &values)
{
    const ScoreModelIndex index = targetBeat(session, values);
    const int string = targetString(session, values, 1);
    const auto track = index.track();
    const int written = values.get<PitchValue>(2).midi - track->transpositionOffset();
    if (session.score().setNoteMidiForString(index, string, written))
        return true;
    throw LineError(values.column(2), QStringLiteral("this string has no fret for it"));
}

bool addDrum(EditSession &session, const Values &values)
{
    return session.score().createNonPitchedNote(targetBeat(session, values), values.get<int>(1));
}

bool addDrumOnLine(EditSession &session, const Values &values)
{
    return session.score().createNonPitchedNote(targetBeat(session, values), values.get<int>(1),
                                                values.get<int>(2) - 1);
}

bool removeDrum(EditSession &session, const Values &values)
{
    return session.score().removeNonPitchedNote(targetBeat(session, values), values.get<int>(1),
                                                values.get<int>(2) - 1);
}

// Lengths.

/// "3/2" is three in the time of two, "none" none.
RhythmValue::TupletRatio ratioOf(const Values &values, std::size_t parameter)
{
    const QString text = values.get<QString>(parameter, QStringLiteral("none"));
    if (text == QStringLiteral("none"))
        return {0, 0};
    constexpr unsigned highest = 255;
    const QStringList parts = text.split(QLatin1Char('/'));
    bool isFirst = false;
    bool isSecond = false;
    const unsigned first = parts.front().toUInt(&isFirst);
    const unsigned second = parts.back().toUInt(&isSecond);
    if (parts.size() != 2 || !isFirst || !isSecond || first < 2 || second < 2 || first > highest
        || second > highest)
        throw LineError(values.column(parameter),
                        QStringLiteral("\"%1\" is no tuplet; type one such as 3/2, three in the "
                                       "time of two, or none")
                            .arg(text));
    return {static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(second)};
}

bool setTuplet(EditSession &session, const Values &values)
{
    return session.score().setBeatTuplet(targetBeats(session, values), ratioOf(values, 1),
                                         ratioOf(values, 2));
}

bool setDots(EditSession &session, const Values &values)
{
    return session.score().setNoteAugmentationDot(targetBeats(session, values),
                                                  static_cast<unsigned>(values.get<int>(1)));
}

bool setNoteValue(EditSession &session, const Values &values)
{
    return session.score().setNoteDuration(targetBeats(session, values),
                                           values.get<RhythmValue>(1).getNoteValue());
}

template <int Direction>
bool step(EditSession &session, const Values &values)
{
    return session.score().incrementBeatDuration(targetBeats(session, values),
                                                 Direction * values.get(1, 1));
}

bool play(EditSession &session, const Values &values)
{
    return session.score().setNoteDurationAndVelocity(targetBeat(session, values),
                                                      values.get<RhythmValue>(1),
                                                      static_cast<unsigned>(values.get<int>(2)));
}

} // namespace

const std::vector<Command> &pitchCommands()
{
    static const Parameter beat = {QStringLiteral("BEAT"), Kind::Beat, Presence::Assumed};
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const std::vector<Parameter> onString = {{QStringLiteral("STRING"), Kind::String}};
    const auto number = [](const char *name, double least, double most,
                           Presence presence = Presence::Required) {
        return Parameter{QLatin1String(name), Kind::Whole, presence, least, most};
    };
    const auto word = [](const char *name, const Choices &choices,
                         Presence presence = Presence::Required) {
        return Parameter{QLatin1String(name), Kind::Choice, presence, 0, 0, &choices};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("transpose"),
         {number("SEMITONES", -24, 24), word("FINGERS", refingeringChoices(), Presence::Optional)},
         QStringLiteral("Let a track sound higher or lower."),
         QStringLiteral("Score::transposeTrack"),
         transposeTrack,
         true},
        {QStringLiteral("transpose-score"),
         {number("SEMITONES", -24, 24), {QStringLiteral("KEYS"), Kind::Switch, Presence::Optional}},
         QStringLiteral("Put the piece into another key, or with \"off\" the notes alone."),
         QStringLiteral("Score::transposeAllTracks"),
         transposeScore},
        {QStringLiteral("transposition"),
         {number("SEMITONES", -36, 36)},
         QStringLiteral("Write a track so many semitones from what it sounds; -12 for a guitar."),
         QStringLiteral("Score::setTrackTranspositionOffset"),
         setTransposition,
         true},
        {QStringLiteral("shift-pitch"),
         {beats, number("SEMITONES", -12, 12)},
         QStringLiteral("Move notes up, or down by a negative number."),
         QStringLiteral("Score::shiftSemitone"),
         shiftPitch,
         true,
         onString},
        {QStringLiteral("shift-string"),
         {beats, word("DIRECTION", shiftChoices())},
         QStringLiteral("Play notes on the next string, at their pitch."),
         QStringLiteral("Score::shiftOneString"),
         shiftString,
         true,
         onString},
        {QStringLiteral("set-fret"),
         {beats, number("FRET", 0, HighestFret)},
         QStringLiteral("Put notes on another fret of their strings."),
         QStringLiteral("Score::setStringedNoteFret"),
         refret,
         true,
         onString},
        {QStringLiteral("string-pitch"),
         {beat,
          {QStringLiteral("STRING"), Kind::String, Presence::Assumed},
          {QStringLiteral("PITCH"), Kind::Pitch}},
         QStringLiteral("Write a note on a string; the fret follows."),
         QStringLiteral("Score::setNoteMidiForString"),
         setStringPitch,
         true},
        {QStringLiteral("accidental"),
         {beats, word("ACCIDENTAL", accidentalChoices())},
         QStringLiteral("Give notes an accidental; the letter stays, the pitch follows."),
         QStringLiteral("Score::setNoteSoundingAccidental"),
         setAccidental,
         true,
         onString},
        {QStringLiteral("respell"),
         {beats},
         QStringLiteral("Spell notes in the next way: C#, then Db."),
         QStringLiteral("Score::switchNoteAccidental"),
         respell,
         true,
         onString},
        {QStringLiteral("add-drum"),
         {beat, number("ARTICULATION", 0, HighestArticulation)},
         QStringLiteral("Write percussion by its number in the instrument set, from 0."),
         QStringLiteral("Score::createNonPitchedNote"),
         addDrum,
         true},
        {QStringLiteral("drum-line"),
         {beat, number("KEY", 0, HighestKey), number("LINE", 1, MostLines)},
         QStringLiteral("Write what a MIDI key enters on a line, 1 being the lowest."),
         QStringLiteral("Score::createNonPitchedNote"),
         addDrumOnLine,
         true},
        {QStringLiteral("remove-drum"),
         {beat, number("KEY", 0, HighestKey), number("LINE", 1, MostLines)},
         QStringLiteral("Take percussion off a line."),
         QStringLiteral("Score::removeNonPitchedNote"),
         removeDrum,
         true},
        {QStringLiteral("shift-drum"),
         {beats, word("DIRECTION", shiftChoices())},
         QStringLiteral("Move percussion to the next place that plays something."),
         QStringLiteral("Score::shiftOneElement"),
         shiftDrum,
         true},
        {QStringLiteral("tuplet"),
         {beats,
          {QStringLiteral("RATIO"), Kind::Text},
          {QStringLiteral("INNER"), Kind::Text, Presence::Optional}},
         QStringLiteral("Make tuplets such as 3/2 of beats; none makes them plain."),
         QStringLiteral("Score::setBeatTuplet"),
         setTuplet,
         true},
        {QStringLiteral("dots"),
         {beats, number("DOTS", 0, MostDots)},
         QStringLiteral("Give beats dots."),
         QStringLiteral("Score::setNoteAugmentationDot"),
         setDots,
         true},
        {QStringLiteral("note-value"),
         {beats, {QStringLiteral("VALUE"), Kind::Rhythm}},
         QStringLiteral("Give beats a note value; dots and tuplets stay."),
         QStringLiteral("Score::setNoteDuration"),
         setNoteValue,
         true},
        {QStringLiteral("longer"),
         {beats, number("STEPS", 1, 10, Presence::Optional)},
         QStringLiteral("Make beats longer: eighths become quarters."),
         QStringLiteral("Score::incrementBeatDuration"),
         step<1>,
         true},
        {QStringLiteral("shorter"),
         {beats, number("STEPS", 1, 10, Presence::Optional)},
         QStringLiteral("Make beats shorter: quarters become eighths."),
         QStringLiteral("Score::incrementBeatDuration"),
         step<-1>,
         true},
        {QStringLiteral("rhythm-velocity"),
         {beat, {QStringLiteral("RHYTHM"), Kind::Rhythm}, number("VELOCITY", 1, HighestKey)},
         QStringLiteral("Give a beat its note value and its notes their velocity."),
         QStringLiteral("Score::setNoteDurationAndVelocity"),
         play,
         true},
    };
    return commands;
}

} // namespace zarn::tool
