// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/SheetWords.h"
#include "common/Terminal.h"
#include "common/TrackWord.h"
#include "common/TuningWord.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::tool {

namespace {

constexpr int MostFrets = 36;
constexpr int MostStrings = 12;

/// A place to insert at: as typed, else behind the last one.
unsigned gap(const Values &values, std::size_t parameter, unsigned count)
{
    return values.has(parameter) ? values.index(parameter) : count;
}

/// What `read` makes of a word; what is wrong with the word is told at its place.
template <class Read>
auto atColumn(int column, Read read)
{
    try {
        return read();
    } catch (const Failure &failure) {
        throw LineError(column, QString::fromUtf8(failure.what()));
    }
}

/// Gives a new track the strings and the tuning that the line asks for.
void tuneAsAsked(const Track &track, const Values &values)
{
    const auto tune = [&](const QString &option, const auto &tuningFor) {
        const GuitarTuning present = presentTuning(*track.staff(0));
        const GuitarTuning tuning =
            atColumn(values.optionColumn(option), [&] { return tuningFor(present); });
        for (const auto &staff : track.staves())
            staff->setTuning(tuning);
    };
    const QString strings = QStringLiteral("strings");
    if (const int *const count = values.option<int>(strings))
        tune(strings, [&](const GuitarTuning &present) {
            return usualTuning(present, static_cast<unsigned>(*count));
        });
    const QString tuning = QStringLiteral("tuning");
    if (const QString *const words = values.option<QString>(tuning))
        tune(tuning, [&](const GuitarTuning &present) { return tuningOf(present, *words); });
}

bool addTrack(EditSession &session, const Values &values)
{
    const auto track =
        atColumn(values.column(0), [&] { return makeTrack(values.get<QString>(0)); });
    tuneAsAsked(*track, values);
    return session.score().insertTrack(gap(values, 1, session.model().trackCount()), track);
}

bool copyTrack(EditSession &session, const Values &values)
{
    const auto track = session.model().track(values.index(0));
    if (!track)
        throw Failure("there is no track yet; add-track makes one");
    return session.score().insertTrack(gap(values, 1, session.model().trackCount()),
                                       track->clone());
}

bool removeTrack(EditSession &session, const Values &values)
{
    return session.score().removeTrack(values.index(0));
}

bool setName(EditSession &session, const Values &values)
{
    return session.score().setTrackName(values.index(0), values.get<QString>(1));
}

bool setShortName(EditSession &session, const Values &values)
{
    return session.score().setTrackShortName(values.index(0), values.get<QString>(1));
}

bool setNotations(EditSession &session, const Values &values)
{
    const QString text = values.get<QString>(1);
    if (text == QLatin1String("usual"))
        return session.score().setTrackNotations(values.index(0), std::nullopt);
    TrackNotations notations{false, false, false};
    for (const QString &word : text.split(QLatin1Char(',')))
        if (!addNotation(word, notations))
            throw LineError(
                values.column(1),
                QStringLiteral("\"%1\" is no notation; type staff, tab, slash or several "
                               "of them such as staff,tab, or usual")
                    .arg(word));
    return session.score().setTrackNotations(values.index(0), notations);
}

bool setIcon(EditSession &session, const Values &values)
{
    return session.score().setTrackIcon(values.index(0),
                                        static_cast<ZarnIconID>(values.get<int>(1)));
}

std::shared_ptr<Staff> staffOf(EditSession &session, const Values &values)
{
    const auto track = session.model().track(values.where().track);
    const auto staff = track ? track->staff(values.where().staff) : nullptr;
    if (!staff)
        throw Failure("there is no track yet; add-track makes one");
    return staff;
}

GuitarTuning askedTuning(EditSession &session, const Values &values)
{
    const GuitarTuning present = presentTuning(*staffOf(session, values));
    return atColumn(values.column(0), [&] { return tuningOf(present, values.get<QString>(0)); });
}

bool retune(EditSession &session, const Values &values, const GuitarTuning &tuning,
            Retuning retuning)
{
    const auto staff = staffOf(session, values);
    return session.score().setGuitarFullTuning(values.where().track, values.where().staff, tuning,
                                               staff->capoFret(), retuning);
}

bool setTuning(EditSession &session, const Values &values)
{
    return retune(session, values, askedTuning(session, values), Retuning::KeepFrets);
}

bool retuneKeepingPitches(EditSession &session, const Values &values)
{
    return retune(session, values, askedTuning(session, values), Retuning::KeepPitches);
}

bool setStrings(EditSession &session, const Values &values)
{
    const GuitarTuning present = presentTuning(*staffOf(session, values));
    const GuitarTuning usual =
        atColumn(values.column(0), [&] { return usualTuning(present, values.index(0)); });
    return retune(session, values, usual, Retuning::KeepPitches);
}

bool setCapo(EditSession &session, const Values &values)
{
    const auto staff = staffOf(session, values);
    if (!staff->isFretted())
        throw Failure("there are no strings to put a capo on");
    if (values.index(0) > staff->fretCount())
        throw Failure("this staff has only " + counted(staff->fretCount(), "fret"));
    return session.score().setGuitarFullTuning(values.where().track, values.where().staff,
                                               staff->tuning(), values.index(0),
                                               Retuning::KeepFrets);
}

} // namespace

const std::vector<Command> &trackCommands()
{
    static const Parameter track = {QStringLiteral("TRACK"), Kind::Track};
    static const Parameter trackGap = {QStringLiteral("AT"), Kind::TrackGap, Presence::Optional};
    static const Parameter tuningWords = {QStringLiteral("TUNING"), Kind::Tuning};
    static const Parameter stringCount = {QStringLiteral("STRINGS"), Kind::Whole,
                                          Presence::Required, 1, MostStrings};
    const auto choice = [](const char *name, const Choices &choices) {
        return Parameter{QLatin1String(name), Kind::Choice, Presence::Required, 0, 0, &choices};
    };
    const auto text = [](const char *name) { return Parameter{QLatin1String(name), Kind::Text}; };
    static const std::vector<Command> commands = {
        {QStringLiteral("add-track"),
         {{QStringLiteral("INSTRUMENT"), Kind::Instrument}, trackGap},
         QStringLiteral("Add a track for an instrument, in front of a track or at the end."),
         QStringLiteral("Score::insertTrack"),
         addTrack,
         false,
         {stringCount, tuningWords}},
        {QStringLiteral("copy-track"),
         {track, trackGap},
         QStringLiteral("Add a copy of a track."),
         QStringLiteral("Score::insertTrack"),
         copyTrack},
        {QStringLiteral("remove-track"),
         {track},
         QStringLiteral("Remove a track."),
         QStringLiteral("Score::removeTrack"),
         removeTrack},
        {QStringLiteral("name"),
         {track, text("NAME")},
         QStringLiteral("Name a track."),
         QStringLiteral("Score::setTrackName"),
         setName},
        {QStringLiteral("short-name"),
         {track, text("NAME")},
         QStringLiteral("Give a track a short name."),
         QStringLiteral("Score::setTrackShortName"),
         setShortName},
        {QStringLiteral("notations"),
         {track, text("KINDS")},
         QStringLiteral("Show a track on a staff, as tab, slash or several: staff,tab; or usual."),
         QStringLiteral("Score::setTrackNotations"),
         setNotations},
        {QStringLiteral("icon"),
         {track, choice("ICON", iconChoices())},
         QStringLiteral("Give a track an icon."),
         QStringLiteral("Score::setTrackIcon"),
         setIcon},
        {QStringLiteral("tuning"),
         {tuningWords},
         QStringLiteral("Tune a staff; the frets stay."),
         QStringLiteral("Score::setGuitarFullTuning"),
         setTuning,
         true},
        {QStringLiteral("retune"),
         {tuningWords},
         QStringLiteral("Tune a staff; the pitches stay and get new frets."),
         QStringLiteral("Score::setGuitarFullTuning"),
         retuneKeepingPitches,
         true},
        {QStringLiteral("strings"),
         {stringCount},
         QStringLiteral("Give a staff this many strings in their usual tuning; the pitches stay."),
         QStringLiteral("Score::setGuitarFullTuning"),
         setStrings,
         true},
        {QStringLiteral("capo"),
         {{QStringLiteral("FRET"), Kind::Whole, Presence::Required, 0, MostFrets}},
         QStringLiteral("Put the capo of a staff at a fret; 0 for none."),
         QStringLiteral("Score::setGuitarFullTuning"),
         setCapo,
         true},
    };
    return commands;
}

} // namespace zarn::tool
