// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Terminal.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFileInfo>

#include <cmath>
#include <memory>

namespace zarn::tool {

namespace {

constexpr int MostSounds = 1000;
constexpr int HighestProgram = 128;
constexpr double MostSeconds = 36'000;
constexpr double MostLevel = 8;

// Sounds.

/// A sound of a track by its number from 1.
unsigned soundOf(EditSession &session, const Values &values, unsigned trackIndex,
                 std::size_t parameter)
{
    const auto track = session.model().track(trackIndex);
    const std::size_t count = track ? track->sounds().size() : 0;
    if (values.index(parameter) > count)
        throw LineError(values.column(parameter),
                        QStringLiteral("track %1 has only %2")
                            .arg(trackIndex + 1)
                            .arg(QString::fromStdString(counted(count, "sound"))));
    return values.index(parameter) - 1;
}

bool addSound(EditSession &session, const Values &values)
{
    return session.score().addTrackSound(values.index(0),
                                         Sound(values.text(1), MIDISound(values.get(2, 1) - 1)));
}

bool removeSound(EditSession &session, const Values &values)
{
    const unsigned track = values.index(0);
    return session.score().removeTrackSound(track, soundOf(session, values, track, 1));
}

/// Effects and whatever else the sound has stay.
bool changeSound(EditSession &session, const Values &values)
{
    const unsigned track = values.index(0);
    const unsigned number = soundOf(session, values, track, 1);
    Sound sound(*session.model().track(track)->sounds()[number]);
    sound.setName(values.text(2));
    if (values.has(3)) {
        MIDISound midi = sound.midiSound();
        midi.setProgram(values.get<int>(3) - 1);
        sound.setMidiSound(midi);
    }
    return session.score().setTrackSound(track, number, sound);
}

bool swapSounds(EditSession &session, const Values &values)
{
    const unsigned track = values.index(0);
    const unsigned first = soundOf(session, values, track, 1);
    const unsigned second = soundOf(session, values, track, 2);
    if (first == second)
        throw LineError(values.column(2), QStringLiteral("this is the same sound"));
    return session.score().swapTrackSounds(track, first, second);
}

bool forceSound(EditSession &session, const Values &values)
{
    const unsigned track = values.index(0);
    const int number = values.has(1) ? static_cast<int>(soundOf(session, values, track, 1)) : -1;
    return session.score().setForcedSoundIndex(track, number);
}

// Recordings.

std::int64_t millisecondsOf(double seconds)
{
    return std::llround(1000 * seconds);
}

bool addRecording(EditSession &session, const Values &values)
{
    const QFileInfo file(QString::fromStdString(values.text(0)));
    if (!file.isFile())
        throw LineError(values.column(0), QStringLiteral("there is no such file"));
    auto track = std::make_shared<AudioTrack>(file.completeBaseName().toStdString());
    track->setFilePath(file.absoluteFilePath().toStdString());
    track->setStartOffset(millisecondsOf(values.get(1, 0.0)));
    track->setVolume(static_cast<float>(values.get(2, 1.0)));
    return session.score().createAudioTrack(session.model().audioTrackCount(), std::move(track));
}

/// Which recording of the score a value names, from 0.
unsigned recordingOf(EditSession &session, const Values &values)
{
    const unsigned count = session.model().audioTrackCount();
    if (values.index(0) > count)
        throw LineError(values.column(0),
                        QStringLiteral("there are only %1")
                            .arg(QString::fromStdString(counted(count, "recording"))));
    return values.index(0) - 1;
}

bool removeRecording(EditSession &session, const Values &values)
{
    return session.score().removeAudioTrack(recordingOf(session, values));
}

bool changeRecording(EditSession &session, const Values &values)
{
    const unsigned number = recordingOf(session, values);
    AudioTrack track = *session.model().audioTracks()[number];
    track.setStartOffset(millisecondsOf(values.get<double>(1)));
    track.setVolume(static_cast<float>(values.get(2, double(track.volume()))));
    track.setPan(static_cast<float>(values.get(3, double(track.pan()))));
    return session.score().setAudioTrack(number, track);
}

bool muteRecording(EditSession &session, const Values &values)
{
    const unsigned number = recordingOf(session, values);
    AudioTrack track = *session.model().audioTracks()[number];
    track.setMuted(values.get(1, true));
    return session.score().setAudioTrack(number, track);
}

} // namespace

const std::vector<Command> &soundCommands()
{
    static const Parameter track = {QStringLiteral("TRACK"), Kind::Track};
    static const Parameter name = {QStringLiteral("NAME"), Kind::Text};
    const auto whole = [](const char *text, double most, Presence presence = Presence::Required) {
        return Parameter{QLatin1String(text), Kind::Whole, presence, 1, most};
    };
    static const Parameter number = whole("NUMBER", MostSounds);
    static const Parameter program = whole("PROGRAM", HighestProgram, Presence::Optional);
    static const std::vector<Command> commands = {
        {QStringLiteral("add-sound"),
         {track, name, program},
         QStringLiteral("Add a sound with a General MIDI program to a track."),
         QStringLiteral("Score::addTrackSound"),
         addSound},
        {QStringLiteral("remove-sound"),
         {track, number},
         QStringLiteral("Remove a sound of a track, counted from 1."),
         QStringLiteral("Score::removeTrackSound"),
         removeSound},
        {QStringLiteral("set-sound"),
         {track, number, name, program},
         QStringLiteral("Give a sound of a track another name and program; its effects stay."),
         QStringLiteral("Score::setTrackSound"),
         changeSound},
        {QStringLiteral("swap-sounds"),
         {track, number, whole("OTHER", MostSounds)},
         QStringLiteral("Let two sounds of a track change places."),
         QStringLiteral("Score::swapTrackSounds"),
         swapSounds},
        {QStringLiteral("force-sound"),
         {track, whole("NUMBER", MostSounds, Presence::Optional)},
         QStringLiteral("Play a track with one sound throughout; without a number, as before."),
         QStringLiteral("Score::setForcedSoundIndex"),
         forceSound},
        {QStringLiteral("add-recording"),
         {{QStringLiteral("FILE"), Kind::Text},
          {QStringLiteral("SECONDS"), Kind::Decimal, Presence::Optional, -MostSeconds, MostSeconds},
          {QStringLiteral("LEVEL"), Kind::Decimal, Presence::Optional, 0, MostLevel}},
         QStringLiteral("Let a sound file play along, from so many seconds after the start on."),
         QStringLiteral("Score::createAudioTrack"),
         addRecording},
        {QStringLiteral("remove-recording"),
         {number},
         QStringLiteral("Remove a recording that plays along, counted from 1."),
         QStringLiteral("Score::removeAudioTrack"),
         removeRecording},
        {QStringLiteral("change-recording"),
         {number,
          {QStringLiteral("SECONDS"), Kind::Decimal, Presence::Required, -MostSeconds, MostSeconds},
          {QStringLiteral("LEVEL"), Kind::Decimal, Presence::Optional, 0, MostLevel},
          {QStringLiteral("PAN"), Kind::Decimal, Presence::Optional, -1, 1}},
         QStringLiteral("Let a recording begin elsewhere, louder or softer, at another place."),
         QStringLiteral("Score::setAudioTrack"),
         changeRecording},
        {QStringLiteral("mute-recording"),
         {number, {QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed}},
         QStringLiteral("Mute a recording, or with \"off\" let it be heard."),
         QStringLiteral("Score::setAudioTrack"),
         muteRecording},
    };
    return commands;
}

} // namespace zarn::tool
