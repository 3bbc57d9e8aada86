// SPDX-License-Identifier: MIT
#include "common/Failure.h"
#include "edit/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"

#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::tool {

namespace {

constexpr int MostSounds = 1000;
constexpr int HighestProgram = 128;
constexpr int MostFrets = 36;

unsigned index(const Values &values, std::size_t parameter)
{
    return static_cast<unsigned>(values.get<int>(parameter));
}

/// A place to insert at: as typed, else behind the last one.
unsigned gap(const Values &values, std::size_t parameter, unsigned count)
{
    return values.has(parameter) ? index(values, parameter) : count;
}

bool addTrack(EditSession &session, const Values &values)
{
    return session.score().createTrack(gap(values, 1, session.model().trackCount()),
                                       static_cast<InstrumentSet::Type>(values.get<int>(0)));
}

bool copyTrack(EditSession &session, const Values &values)
{
    const auto track = session.model().track(index(values, 0));
    if (!track)
        throw Failure("there is no such track yet");
    return session.score().insertTrack(gap(values, 1, session.model().trackCount()),
                                       track->clone());
}

bool removeTrack(EditSession &session, const Values &values)
{
    return session.score().removeTrack(index(values, 0));
}

bool setName(EditSession &session, const Values &values)
{
    return session.score().setTrackName(index(values, 0), values.get<QString>(1));
}

bool setShortName(EditSession &session, const Values &values)
{
    return session.score().setTrackShortName(index(values, 0), values.get<QString>(1));
}

bool setIcon(EditSession &session, const Values &values)
{
    return session.score().setTrackIcon(index(values, 0),
                                        static_cast<ZarnIconID>(values.get<int>(1)));
}

std::shared_ptr<Staff> staffOf(EditSession &session, const Values &values)
{
    const auto track = session.model().track(values.where().track);
    const auto staff = track ? track->staff(values.where().staff) : nullptr;
    if (!staff)
        throw Failure("there is no such staff yet");
    return staff;
}

bool retune(EditSession &session, const Values &values, Retuning retuning)
{
    const auto staff = staffOf(session, values);
    GuitarTuning tuning = staff->tuning();
    tuning.setMidiNumbers(values.get(0, std::vector<int>()));
    return session.score().setGuitarFullTuning(values.where().track, values.where().staff, tuning,
                                               staff->capoFret(), retuning);
}

bool setTuning(EditSession &session, const Values &values)
{
    return retune(session, values, Retuning::KeepFrets);
}

bool retuneKeepingPitches(EditSession &session, const Values &values)
{
    return retune(session, values, Retuning::KeepPitches);
}

bool setCapo(EditSession &session, const Values &values)
{
    const auto staff = staffOf(session, values);
    return session.score().setGuitarFullTuning(values.where().track, values.where().staff,
                                               staff->tuning(), index(values, 0),
                                               Retuning::KeepFrets);
}

bool addSound(EditSession &session, const Values &values)
{
    return session.score().addTrackSound(index(values, 0),
                                         Sound(values.text(1), MIDISound(values.get(2, 1) - 1)));
}

bool removeSound(EditSession &session, const Values &values)
{
    return session.score().removeTrackSound(index(values, 0), index(values, 1) - 1);
}

bool addAudioTrack(EditSession &session, const Values &values)
{
    const auto track = std::make_shared<AudioTrack>(values.text(0));
    track->setFilePath(values.text(1));
    return session.score().createAudioTrack(session.model().audioTrackCount(), track);
}

bool removeAudioTrack(EditSession &session, const Values &values)
{
    return session.score().removeAudioTrack(index(values, 0) - 1);
}

} // namespace

const std::vector<Command> &trackCommands()
{
    static const Parameter track = {QStringLiteral("TRACK"), Kind::Track};
    static const Parameter trackGap = {QStringLiteral("AT"), Kind::TrackGap, Presence::Optional};
    static const Parameter number = {QStringLiteral("NUMBER"), Kind::Whole, Presence::Required, 1,
                                     MostSounds};
    const auto choice = [](const char *name, const Choices &choices) {
        return Parameter{QLatin1String(name), Kind::Choice, Presence::Required, 0, 0, &choices};
    };
    const auto text = [](const char *name, Presence presence = Presence::Required) {
        return Parameter{QLatin1String(name), Kind::Text, presence};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("add-track"),
         {choice("INSTRUMENT", instrumentChoices()), trackGap},
         QStringLiteral("Add a track for an instrument, in front of a track or at the end."),
         QStringLiteral("Score::createTrack"),
         addTrack},
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
        {QStringLiteral("icon"),
         {track, choice("ICON", iconChoices())},
         QStringLiteral("Give a track an icon."),
         QStringLiteral("Score::setTrackIcon"),
         setIcon},
        {QStringLiteral("tuning"),
         {{QStringLiteral("NOTE"), Kind::Pitches, Presence::Optional}},
         QStringLiteral("Tune a staff, the lowest string first; the frets stay."),
         QStringLiteral("Score::setGuitarFullTuning"),
         setTuning,
         true},
        {QStringLiteral("retune"),
         {{QStringLiteral("NOTE"), Kind::Pitches, Presence::Optional}},
         QStringLiteral("Tune a staff; the pitches stay and are fingered anew."),
         QStringLiteral("Score::setGuitarFullTuning"),
         retuneKeepingPitches,
         true},
        {QStringLiteral("capo"),
         {{QStringLiteral("FRET"), Kind::Whole, Presence::Required, 0, MostFrets}},
         QStringLiteral("Put the capo of a staff at a fret; 0 for none."),
         QStringLiteral("Score::setGuitarFullTuning"),
         setCapo,
         true},
        {QStringLiteral("add-sound"),
         {track,
          text("NAME"),
          {QStringLiteral("PROGRAM"), Kind::Whole, Presence::Optional, 1, HighestProgram}},
         QStringLiteral("Add a sound with a General MIDI program to a track."),
         QStringLiteral("Score::addTrackSound"),
         addSound},
        {QStringLiteral("remove-sound"),
         {track, number},
         QStringLiteral("Remove a sound of a track, counted from 1."),
         QStringLiteral("Score::removeTrackSound"),
         removeSound},
        {QStringLiteral("add-audio-track"),
         {text("NAME"), text("FILE", Presence::Optional)},
         QStringLiteral("Add a recording that plays along."),
         QStringLiteral("Score::createAudioTrack"),
         addAudioTrack},
        {QStringLiteral("remove-audio-track"),
         {number},
         QStringLiteral("Remove a recording, counted from 1."),
         QStringLiteral("Score::removeAudioTrack"),
         removeAudioTrack},
    };
    return commands;
}

} // namespace zarn::tool
