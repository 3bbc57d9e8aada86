// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreTrackOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Track/ZarnCreateAudioTrack.h>
#include <ZarnCore/commands/Track/ZarnCreateTrack.h>
#include <ZarnCore/commands/Track/ZarnInsertTrack.h>
#include <ZarnCore/commands/Track/ZarnMoveTrack.h>
#include <ZarnCore/commands/Track/ZarnRemoveAudioTrack.h>
#include <ZarnCore/commands/Track/ZarnRemoveTrack.h>
#include <ZarnCore/commands/Track/ZarnSetAudioTrack.h>
#include <ZarnCore/commands/Track/ZarnSetAutoAccentuation.h>
#include <ZarnCore/commands/Track/ZarnSetAutoBrush.h>
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>
#include <ZarnCore/commands/Track/ZarnSetLetRingThroughout.h>
#include <ZarnCore/commands/Track/ZarnSetLyrics.h>
#include <ZarnCore/commands/Track/ZarnSetLyricsOffset.h>
#include <ZarnCore/commands/Track/ZarnSetLyricsVisible.h>
#include <ZarnCore/commands/Track/ZarnSetOneChannelPerString.h>
#include <ZarnCore/commands/Track/ZarnSetPalmMute.h>
#include <ZarnCore/commands/Track/ZarnSetPlayingStyle.h>
#include <ZarnCore/commands/Track/ZarnSetStaffCount.h>
#include <ZarnCore/commands/Track/ZarnSetTrackColor.h>
#include <ZarnCore/commands/Track/ZarnSetTrackIcon.h>
#include <ZarnCore/commands/Track/ZarnSetTrackMidiConnection.h>
#include <ZarnCore/commands/Track/ZarnSetTrackName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackNotations.h>
#include <ZarnCore/commands/Track/ZarnSetTrackPlayback.h>
#include <ZarnCore/commands/Track/ZarnSetTrackShortName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackTranspositionOffset.h>
#include <ZarnCore/commands/Track/ZarnTransposeAllTracks.h>
#include <ZarnCore/commands/Track/ZarnTransposeTrack.h>

#include <utility>

namespace zarn {

bool ScoreTrackOperations::createTrack(unsigned index, InstrumentSet::Type type)
{
    return execute<cmd::CreateTrack>(*this, index, type);
}

bool ScoreTrackOperations::insertTrack(unsigned index, std::shared_ptr<Track> track)
{
    return execute<cmd::InsertTrack>(*this, index, std::move(track));
}

bool ScoreTrackOperations::removeTrack(unsigned index)
{
    return execute<cmd::RemoveTrack>(*this, index);
}

bool ScoreTrackOperations::moveTrack(unsigned from, unsigned to)
{
    return execute<cmd::MoveTrack>(*this, from, to);
}

bool ScoreTrackOperations::setTrackName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackName>(*this, track, name);
}

bool ScoreTrackOperations::setTrackShortName(unsigned track, const QString &name)
{
    return execute<cmd::SetTrackShortName>(*this, track, name);
}

bool ScoreTrackOperations::setTrackIcon(unsigned track, ZarnIconID icon)
{
    return execute<cmd::SetTrackIcon>(*this, track, icon);
}

bool ScoreTrackOperations::setTrackColor(unsigned track, std::uint32_t color)
{
    return execute<cmd::SetTrackColor>(*this, track, color);
}

bool ScoreTrackOperations::setStaffCount(unsigned track, unsigned count)
{
    return execute<cmd::SetStaffCount>(*this, track, count);
}

bool ScoreTrackOperations::setTrackMidiConnection(unsigned track,
                                                  const std::optional<MidiConnection> &connection)
{
    return execute<cmd::SetTrackMidiConnection>(*this, track, connection);
}

bool ScoreTrackOperations::setOneChannelPerString(unsigned track, bool isOn)
{
    return execute<cmd::SetOneChannelPerString>(*this, track, isOn);
}

bool ScoreTrackOperations::setTrackPlayback(unsigned track, TrackPlayback playback)
{
    return execute<cmd::SetTrackPlayback>(*this, track, playback);
}

bool ScoreTrackOperations::setTrackNotations(unsigned track,
                                             const std::optional<TrackNotations> &notations)
{
    return execute<cmd::SetTrackNotations>(*this, track, notations);
}

bool ScoreTrackOperations::setPlayingStyle(unsigned track, PlayingStyle style)
{
    return execute<cmd::SetPlayingStyle>(*this, track, style);
}

bool ScoreTrackOperations::setAutoAccentuation(unsigned track, bool isOn)
{
    return execute<cmd::SetAutoAccentuation>(*this, track, isOn);
}

bool ScoreTrackOperations::setAutoBrush(unsigned track, bool isOn)
{
    return execute<cmd::SetAutoBrush>(*this, track, isOn);
}

bool ScoreTrackOperations::setLetRingThroughout(unsigned track, bool isOn)
{
    return execute<cmd::SetLetRingThroughout>(*this, track, isOn);
}

bool ScoreTrackOperations::setPalmMute(unsigned track, float strength)
{
    return execute<cmd::SetPalmMute>(*this, track, strength);
}

bool ScoreTrackOperations::setGuitarFullTuning(unsigned track, unsigned staff,
                                               const GuitarTuning &tuning, unsigned capoFret,
                                               Retuning retuning)
{
    return execute<cmd::SetGuitarFullTuning>(*this, track, staff, tuning, capoFret, retuning);
}

bool ScoreTrackOperations::setLyrics(unsigned track, unsigned line, const QString &text,
                                     unsigned firstBar)
{
    return execute<cmd::SetLyrics>(*this, track, line, text, firstBar);
}

bool ScoreTrackOperations::setLyricsOffset(unsigned track, unsigned line, unsigned firstBar)
{
    return execute<cmd::SetLyricsOffset>(*this, track, line, firstBar);
}

bool ScoreTrackOperations::setLyricsVisible(unsigned track, unsigned lines)
{
    return execute<cmd::SetLyricsVisible>(*this, track, lines);
}

bool ScoreTrackOperations::setTrackTranspositionOffset(unsigned track, int semitones)
{
    return execute<cmd::SetTrackTranspositionOffset>(*this, track, semitones);
}

bool ScoreTrackOperations::transposeTrack(unsigned track, int semitones, Refingering refingering)
{
    return execute<cmd::TransposeTrack>(*this, track, semitones, refingering);
}

bool ScoreTrackOperations::transposeAllTracks(int semitones, bool areKeysMoved)
{
    return execute<cmd::TransposeAllTracks>(*this, semitones, areKeysMoved);
}

bool ScoreTrackOperations::createAudioTrack(unsigned index, std::shared_ptr<AudioTrack> track)
{
    return execute<cmd::CreateAudioTrack>(*this, index, std::move(track));
}

bool ScoreTrackOperations::removeAudioTrack(unsigned index)
{
    return execute<cmd::RemoveAudioTrack>(*this, index);
}

bool ScoreTrackOperations::setAudioTrack(unsigned index, const AudioTrack &track)
{
    return execute<cmd::SetAudioTrack>(*this, index, track);
}

} // namespace zarn
