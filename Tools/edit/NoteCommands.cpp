// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/MusicWriter.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnFretting.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;
constexpr double MostTimes = 1000;

bool addBeat(EditSession &session, const Values &values)
{
    return session.score().createBeat(targetBeat(session, values, Allowed::BeatsAndEnd),
                                      values.get<RhythmValue>(1));
}

bool removeBeats(EditSession &session, const Values &values)
{
    return session.score().removeBeats(targetBeats(session, values));
}

/// One note that "fret" writes.
struct Fingering {
    ScoreModelIndex beat;
    int string;
};

/// Where "fret" writes: on the string that is named or that the cursor is on, else, in what is
/// selected, on the string of each note.
std::vector<Fingering> fingerings(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const bool followsNotes = !values.has(1) && !values.has(0) && session.selection().has_value();
    std::vector<Fingering> found;
    for (const BeatSpan &span : beatSpans(*session.score().scoreModel(), range)) {
        const Where where = {span.track, span.staff, span.voice};
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
            const ScoreModelIndex index = indexOf(session, where, {span.bar, i});
            if (!followsNotes) {
                found.push_back({index, targetString(session, values, 1)});
                continue;
            }
            for (const auto &note : index.beat()->notes())
                if (note->string() != Note::Unset)
                    found.push_back({index, note->string()});
        }
    }
    if (found.empty())
        throw LineError(values.column(0),
                        followsNotes ? QStringLiteral("no note on a string is selected")
                                     : QStringLiteral("there are no beats here"));
    return found;
}

void requireFret(const Fingering &at, int fret, int column)
{
    const auto staff = at.beat.staff();
    if (!staff || writtenPitch(*staff, at.string, fret) >= 0)
        return;
    const int strings = static_cast<int>(staff->tuning().stringCount());
    const bool isShort = staff->hasShortDroneString() && at.string == 0;
    throw LineError(
        column,
        at.string >= strings
            ? QStringLiteral("track %1 has no string that low").arg(at.beat.trackIndex() + 1)
            : QStringLiteral("string %1 of track %2 has no fret %3; its frets go from "
                             "%4 to %5")
                  .arg(strings - at.string)
                  .arg(at.beat.trackIndex() + 1)
                  .arg(fret)
                  .arg(isShort ? GuitarTuning::droneFret : 0)
                  .arg(staff->fretCount()));
}

bool setFret(EditSession &session, const Values &values)
{
    const std::vector<Fingering> all = fingerings(session, values);
    const int fret = values.get<int>(2);
    for (const Fingering &at : all)
        requireFret(at, fret, values.column(2));
    if (all.size() == 1)
        return session.score().setStringedNote(all.front().beat, all.front().string, fret);
    Transaction step(&session.score(), QStringLiteral("SetStringedNotes"));
    for (const Fingering &at : all)
        if (!session.score().setStringedNote(at.beat, at.string, fret))
            return false;
    step.commit();
    return true;
}

/// The written key of a pitch as it sounds; checked.
int writtenKey(const ScoreModelIndex &index, const PitchValue &pitch, int column)
{
    const auto track = index.track();
    const int written = pitch.midi - (track ? track->transpositionOffset() : 0);
    constexpr int HighestKey = 127;
    if (written < 0 || written > HighestKey)
        throw LineError(
            column,
            QStringLiteral("this is too low or too high for track %1").arg(index.trackIndex() + 1));
    return written;
}

/// Says why a pitch cannot be written, when one knows.
void requirePitch(const ScoreModelIndex &index, int written, const Values &values)
{
    const auto beat = index.beat();
    if (!beat)
        return;
    const QString place =
        QStringLiteral("%1:%2").arg(index.barIndex() + 1).arg(index.beatIndex() + 1);
    if (beat->noteWithMidi(written))
        throw LineError(values.column(1), QStringLiteral("%1 has this note already").arg(place));
    if (values.has(2) && !index.note())
        throw LineError(values.column(2),
                        QStringLiteral("%1 has no such note to replace").arg(place));
}

bool setPitch(EditSession &session, const Values &values)
{
    ScoreModelIndex index = targetBeat(session, values);
    if (values.has(2))
        index.setNoteMidi(static_cast<std::uint32_t>(
            writtenKey(index, values.get<PitchValue>(2), values.column(2))));
    const int written = writtenKey(index, values.get<PitchValue>(1), values.column(1));
    requirePitch(index, written, values);
    // A spelling is that of the sounding note: it holds where the written one is its octave.
    const auto &spelling = values.get<PitchValue>(1).spelling;
    const bool isSpelled = spelling && (values.get<PitchValue>(1).midi - written) % 12 == 0;
    if (isSpelled ? session.score().setMIDINote(index, written, *spelling)
                  : session.score().setMIDINote(index, written))
        return true;
    throw LineError(values.column(1),
                    QStringLiteral("no free string of %1:%2 can play this")
                        .arg(index.barIndex() + 1)
                        .arg(index.beatIndex() + 1));
}

bool removeNote(EditSession &session, const Values &values)
{
    ScoreModelIndex index = targetBeat(session, values);
    index.setNoteMidi(
        static_cast<std::uint32_t>(writtenKey(index, values.get<PitchValue>(1), values.column(1))));
    if (!index.note())
        throw LineError(values.column(1),
                        QStringLiteral("%1:%2 has no such note")
                            .arg(index.barIndex() + 1)
                            .arg(index.beatIndex() + 1));
    return session.score().removeNote(index);
}

TypedMusic typedMusic(const Values &values, std::size_t text)
{
    TypedMusic music;
    music.text = values.get<QString>(text);
    music.times = values.get(text + 1, 1);
    music.column = values.column(text);
    return music;
}

bool write(EditSession &session, const Values &values)
{
    BeatPlace from = values.has(0) ? values.get<BeatPlace>(0) : cursorPlace(session);
    const bool isNewBar = from.bar >= session.model().masterTrack()->masterBarCount();
    if (!isNewBar || from.beat != 0)
        requireBeat(session, values.where(), from, values.column(0), Allowed::BeatsAndEnd);
    return writeMusic(session, values.where(), from, typedMusic(values, 1));
}

bool append(EditSession &session, const Values &values)
{
    return writeMusic(session, values.where(), endOfVoice(session, values.where()),
                      typedMusic(values, 0));
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
    static const Parameter music = {QStringLiteral("MUSIC"), Kind::Music};
    static const Parameter times = {QStringLiteral("TIMES"), Kind::Whole, Presence::Optional, 1,
                                    MostTimes};
    static const std::vector<Command> commands = {
        {QStringLiteral("write"),
         {{QStringLiteral("BEAT"), Kind::NewBeat, Presence::Assumed}, music, times},
         QStringLiteral("Write music from a beat on, over what is there."),
         QStringLiteral("Score::writeBeats"),
         write,
         true},
        {QStringLiteral("append"),
         {music, times},
         QStringLiteral("Write music behind the last beat of the voice."),
         QStringLiteral("Score::writeBeats"),
         append,
         true},
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
         {beats,
          {QStringLiteral("STRING"), Kind::String, Presence::Assumed},
          {QStringLiteral("FRET"), Kind::Whole, Presence::Required, 0, HighestFret}},
         QStringLiteral("Write a fret on a string of beats; of what is selected, on each note."),
         QStringLiteral("Score::setStringedNote"),
         setFret,
         true},
        {QStringLiteral("pitch"),
         {beat,
          {QStringLiteral("PITCH"), Kind::Pitch},
          {QStringLiteral("INSTEAD"), Kind::Pitch, Presence::Optional}},
         QStringLiteral("Write a note on a beat, beside its others or INSTEAD of one."),
         QStringLiteral("Score::setMIDINote"),
         setPitch,
         true},
        {QStringLiteral("remove-note"),
         {beat, {QStringLiteral("PITCH"), Kind::Pitch}},
         QStringLiteral("Take one note off a beat; the last one leaves a rest."),
         QStringLiteral("Score::removeNote"),
         removeNote,
         true},
        {QStringLiteral("rest"),
         {beats},
         QStringLiteral("Turn beats into rests."),
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
