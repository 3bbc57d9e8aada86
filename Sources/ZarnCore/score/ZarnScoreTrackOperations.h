// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnTrackNotations.h>
#include <ZarnCore/model/ZarnTrackSettings.h>
#include <ZarnCore/model/notes/ZarnRefingering.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace zarn {

class AudioTrack;
class GuitarTuning;
class Track;

/// What can be done to the tracks of a score. Each answers whether it was done: what cannot be done
/// is logged and changes nothing.
class ZARNCORE_EXPORT ScoreTrackOperations {
public:
    /// Inserts a track as its instrument needs it, in front of a track or at the end.
    bool createTrack(unsigned index, InstrumentSet::Type type);

    /// The same with a detached track, which gets the bars that it lacks; none may be too many.
    bool insertTrack(unsigned index, std::shared_ptr<Track> track);
    bool removeTrack(unsigned index);

    /// Gives a track another index among the tracks.
    bool moveTrack(unsigned from, unsigned to);

    bool setTrackName(unsigned track, const QString &name);
    bool setTrackShortName(unsigned track, const QString &name);
    bool setTrackIcon(unsigned track, ZarnIconID icon);

    /// 0xRRGGBB.
    bool setTrackColor(unsigned track, std::uint32_t color);

    /// Chooses the notations that a track is shown in; nothing leaves them to the instrument.
    bool setTrackNotations(unsigned track, const std::optional<TrackNotations> &notations);

    /// Staves that go take their music along; staves that come are empty.
    bool setStaffCount(unsigned track, unsigned count);

    // How a track is played; see `TrackSettings`.

    /// Nothing leaves port and channels to the instrument.
    bool setTrackMidiConnection(unsigned track, const std::optional<MidiConnection> &connection);
    bool setOneChannelPerString(unsigned track, bool isOn);
    bool setTrackPlayback(unsigned track, TrackPlayback playback);
    bool setPlayingStyle(unsigned track, PlayingStyle style);
    bool setAutoAccentuation(unsigned track, bool isOn);
    bool setAutoBrush(unsigned track, bool isOn);
    bool setLetRingThroughout(unsigned track, bool isOn);

    /// How much palm muting dampens in a track with frets, from 0 to 1. Notes are palm muted by
    /// `setStringedNotePalmMute`.
    bool setPalmMute(unsigned track, float strength);

    /// Tunes a staff anew; see `cmd::SetGuitarFullTuning` for what becomes of the notes.
    bool setGuitarFullTuning(unsigned track, unsigned staff, const GuitarTuning &tuning,
                             unsigned capoFret = 0, Retuning retuning = Retuning::KeepFrets);

    /// Semitones from what is written to what sounds, -36 to 36; the written notes move, and what
    /// sounds stays.
    bool setTrackTranspositionOffset(unsigned track, int semitones);

    /// Makes a track, or the piece, sound up to 24 semitones higher or, negative, lower; the piece
    /// with its key signatures on request.
    bool transposeTrack(unsigned track, int semitones,
                        Refingering refingering = Refingering::KeepStrings);
    bool transposeAllTracks(int semitones, bool areKeysMoved);

    // Lyrics, in lines from 0 to 4 under the first staff of a track.

    /// Writes a line from a bar on; see `lyricsFromText` for what is typed. What finds no notes
    /// waits in the track for those that come.
    bool setLyrics(unsigned track, unsigned line, const QString &text, unsigned firstBar);

    /// Starts a line at another bar, and lays out what has been waiting for notes.
    bool setLyricsOffset(unsigned track, unsigned line, unsigned firstBar);

    /// Shows these lines and no others, bit 0 the first.
    bool setLyricsVisible(unsigned track, unsigned lines);

    /// Inserts a recording that plays along, in front of another or at the end.
    bool createAudioTrack(unsigned index, std::shared_ptr<AudioTrack> track);
    bool removeAudioTrack(unsigned index);

    /// Gives a recording another name, file, start, level, place, or mutes it.
    bool setAudioTrack(unsigned index, const AudioTrack &track);

protected:
    ScoreTrackOperations() = default;
    ~ScoreTrackOperations() = default;
};

} // namespace zarn
