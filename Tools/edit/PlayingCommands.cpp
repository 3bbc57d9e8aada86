// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/model/ZarnTrackSettings.h>

namespace zarn::tool {

namespace {

constexpr int MostStaves = 16;

const Choices &playingStyleChoices()
{
    static const Choices choices = {
        choice("default", PlayingStyle::Default),
        choice("pick", PlayingStyle::StringedPick),
        choice("fingers", PlayingStyle::StringedFinger),
        choice("finger-picking", PlayingStyle::StringedFingerPicking),
        choice("slap", PlayingStyle::BassSlap),
        choice("brushes", PlayingStyle::DrumKitBrush),
        choice("sticks", PlayingStyle::DrumKitStick),
        choice("hot-rods", PlayingStyle::DrumKitHotRod),
    };
    return choices;
}

const Choices &playbackChoices()
{
    static const Choices choices = {
        choice("normal", TrackPlayback::Normal),
        choice("mute", TrackPlayback::Mute),
        choice("solo", TrackPlayback::Solo),
    };
    return choices;
}

const Choices &automationChoices()
{
    static const Choices choices = {
        choice("sounds", Automation::Sound),
        choice("volume", channelStripType(ChannelStripParameter::Volume)),
        choice("panning", channelStripType(ChannelStripParameter::Pan)),
    };
    return choices;
}

bool setPlayback(EditSession &session, const Values &values)
{
    return session.score().setTrackPlayback(values.index(0),
                                            static_cast<TrackPlayback>(values.get<int>(1)));
}

bool bypassAutomations(EditSession &session, const Values &values)
{
    return session.score().modifyTrackAutomationBypass(
        values.index(0), static_cast<Automation::Type>(values.get<int>(1)), values.get(2, true));
}

bool moveTrack(EditSession &session, const Values &values)
{
    if (values.get<int>(0) == values.get<int>(1))
        throw LineError(values.column(1), QStringLiteral("the track is there already"));
    return session.score().moveTrack(values.index(0), values.index(1));
}

bool setColor(EditSession &session, const Values &values)
{
    constexpr int Digits = 6;
    constexpr int Base = 16;
    const QString text = values.get<QString>(1);
    bool isNumber = false;
    const unsigned color = text.toUInt(&isNumber, Base);
    if (!isNumber || text.size() != Digits)
        throw LineError(values.column(1),
                        QStringLiteral("a colour is six digits for red, green and blue, such as "
                                       "E0A030"));
    return session.score().setTrackColor(values.index(0), color);
}

bool setStaves(EditSession &session, const Values &values)
{
    return session.score().setStaffCount(values.index(0), values.index(1));
}

bool setMidi(EditSession &session, const Values &values)
{
    if (!values.has(1))
        return session.score().setTrackMidiConnection(values.index(0), std::nullopt);
    const int channel = values.get<int>(1);
    MidiConnection connection;
    connection.channel = static_cast<std::uint8_t>(channel - 1);
    connection.bendChannel = static_cast<std::uint8_t>(values.get(2, channel) - 1);
    connection.port = static_cast<std::uint8_t>(values.get(3, 1) - 1);
    return session.score().setTrackMidiConnection(values.index(0), connection);
}

bool setStyle(EditSession &session, const Values &values)
{
    return session.score().setPlayingStyle(values.index(0),
                                           static_cast<PlayingStyle>(values.get<int>(1)));
}

bool setMuteStrength(EditSession &session, const Values &values)
{
    return session.score().setPalmMute(values.index(0), static_cast<float>(values.get<double>(1)));
}

template <bool (ScoreTrackOperations::*Set)(unsigned, bool)>
bool setSwitch(EditSession &session, const Values &values)
{
    return (session.score().*Set)(values.index(0), values.get(1, true));
}

} // namespace

const std::vector<Command> &playingCommands()
{
    static const Parameter track = {QStringLiteral("TRACK"), Kind::Track};
    static const Parameter isOn = {QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed};
    const auto channel = [](const char *name) {
        return Parameter{QLatin1String(name), Kind::Whole, Presence::Optional, 1,
                         MidiConnection::ChannelCount};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("move-track"),
         {track, {QStringLiteral("TO"), Kind::Track}},
         QStringLiteral("Give a track another place among the tracks."),
         QStringLiteral("Score::moveTrack"),
         moveTrack},
        {QStringLiteral("color"),
         {track, {QStringLiteral("COLOR"), Kind::Text}},
         QStringLiteral("Give a track a colour: red, green and blue such as E0A030."),
         QStringLiteral("Score::setTrackColor"),
         setColor},
        {QStringLiteral("staves"),
         {track, {QStringLiteral("COUNT"), Kind::Whole, Presence::Required, 1, MostStaves}},
         QStringLiteral("Give a track this many staves; the last ones go or come."),
         QStringLiteral("Score::setStaffCount"),
         setStaves},
        {QStringLiteral("midi"),
         {track,
          channel("CHANNEL"),
          channel("BENDS"),
          {QStringLiteral("PORT"), Kind::Whole, Presence::Optional, 1, MidiConnection::PortCount}},
         QStringLiteral("Send a track on a MIDI channel, bent notes on another; alone: as usual."),
         QStringLiteral("Score::setTrackMidiConnection"),
         setMidi},
        {QStringLiteral("channel-per-string"),
         {track, isOn},
         QStringLiteral("Send each string of a track on a MIDI channel of its own."),
         QStringLiteral("Score::setOneChannelPerString"),
         setSwitch<&ScoreTrackOperations::setOneChannelPerString>},
        {QStringLiteral("playback"),
         {track,
          {QStringLiteral("MODE"), Kind::Choice, Presence::Required, 0, 0, &playbackChoices()}},
         QStringLiteral("Mute a track, or let it and other solo tracks play alone."),
         QStringLiteral("Score::setTrackPlayback"),
         setPlayback},
        {QStringLiteral("bypass-automations"),
         {track,
          {QStringLiteral("KIND"), Kind::Choice, Presence::Required, 0, 0, &automationChoices()},
          isOn},
         QStringLiteral("Make playback ignore what changes in a track: sounds, volume, panning."),
         QStringLiteral("Score::modifyTrackAutomationBypass"),
         bypassAutomations},
        {QStringLiteral("playing-style"),
         {track,
          {QStringLiteral("STYLE"), Kind::Choice, Presence::Required, 0, 0,
           &playingStyleChoices()}},
         QStringLiteral("Say how a track is played."),
         QStringLiteral("Score::setPlayingStyle"),
         setStyle},
        {QStringLiteral("auto-accents"),
         {track, isOn},
         QStringLiteral("Make playback accent the beats of the meter."),
         QStringLiteral("Score::setAutoAccentuation"),
         setSwitch<&ScoreTrackOperations::setAutoAccentuation>},
        {QStringLiteral("auto-brush"),
         {track, isOn},
         QStringLiteral("Make playback strum the chords of a track."),
         QStringLiteral("Score::setAutoBrush"),
         setSwitch<&ScoreTrackOperations::setAutoBrush>},
        {QStringLiteral("ring-throughout"),
         {track, isOn},
         QStringLiteral("Make playback let all notes of a track ring."),
         QStringLiteral("Score::setLetRingThroughout"),
         setSwitch<&ScoreTrackOperations::setLetRingThroughout>},
        {QStringLiteral("mute-strength"),
         {track, {QStringLiteral("STRENGTH"), Kind::Decimal, Presence::Required, 0, 1}},
         QStringLiteral("Say how much palm muting dampens in a track."),
         QStringLiteral("Score::setPalmMute"),
         setMuteStrength},
    };
    return commands;
}

} // namespace zarn::tool
