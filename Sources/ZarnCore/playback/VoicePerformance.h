// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/BeatStrokes.h>
#include <ZarnCore/playback/DynamicsCurve.h>
#include <ZarnCore/playback/NoteChains.h>
#include <ZarnCore/playback/RingingNotes.h>
#include <ZarnCore/playback/SoundingKey.h>
#include <ZarnCore/playback/TrackPerformance.h>
#include <ZarnCore/playback/TremoloPairs.h>

namespace zarn::playback {

/// A note that is tied to one which its voice does not have: another voice may.
struct LooseEnd {
    std::size_t note = 0; ///< in the notes of the track
    utils::rational time; ///< where the tie is, as written
};

/// Where a voice stands, and what all its notes go by.
struct VoicePlace {
    const ScoreModel &model;
    const Track &track;
    const Staff &staff;
    unsigned slot;
    const PlayedBars &bars;
    const TempoMap &tempo;
    const DynamicsCurve &dynamics;
    bool hasMarkedBeats; ///< the track has some; without any, nobody looks for them
};

/// Plays the notes of one voice into the performance of its track.
class VoicePerformance {
public:
    VoicePerformance(const VoicePlace &place, const PlayedBeats &beats, TrackPerformance &result,
                     std::vector<RingingNote> &ringing, std::vector<LooseEnd> &looseStarts,
                     std::vector<LooseEnd> &looseEnds);

    void play();

private:
    /// A time that a note is struck.
    struct Attack {
        utils::rational start;
        utils::rational end;
        int semitones = 0;
        int velocityChange = 0;
    };

    void playChain(const NoteChain &chain);
    bool playPlainly(const NoteChain &chain);
    bool findPlainBeat(const NotePiece &piece);
    void strikePiece(const NotePiece &piece, bool isFirst);
    void strikeOnce(const NotePiece &piece, const Stroke &stroke, const utils::rational &delay,
                    bool isFirst);
    void hold(const utils::rational &start, const utils::rational &end, int semitones);
    void endAttacks(const NoteChain &chain);
    void endStrokes(const NotePiece &last);
    void addSwell(const NoteChain &chain);
    std::int32_t addMotion(const NoteChain &chain);
    std::int32_t numberOf(PitchMotion motion);
    PlannedNote plan(const NotePiece &piece, const SoundingKey &key) const;
    int velocityOfPiece(const NotePiece &piece, Approach approach);
    double beatVelocity(std::uint32_t beat);
    Technique techniqueOf(const NotePiece &piece, Approach approach) const;
    utils::rational delayOf(const NotePiece &piece, const Stroke &stroke);
    bool rings(const Note &note) const;
    const std::vector<Stroke> &strokesOfBeat(std::uint32_t beat);
    bool followsPlainly(std::uint32_t beat) const;
    void addFade(const NotePiece &piece, const utils::rational &from, const utils::rational &to);
    const Beat &beatOf(const NotePiece &piece) const { return *_beats[piece.beat].beat; }

    const VoicePlace &_place;
    const PlayedBeats &_beats;
    TrackPerformance &_result;
    std::vector<RingingNote> &_ringing;
    std::vector<LooseEnd> &_looseStarts;
    std::vector<LooseEnd> &_looseEnds;

    NoteChains _chains;
    TremoloPairs _tremolos;
    bool _hasMarkedNotes = false;
    bool _hasHairpins = false;
    std::vector<Attack> _attacks;

    /// No note of the voice is more than its beat: what a track or the voice has for all of them.
    bool _isPlain = false;

    /// How notes without any mark sound on the beat asked for last.
    struct PlainBeat {
        std::uint32_t beat = NotePiece::None;
        bool isPlain = false;
        utils::rational start;
        utils::rational end;
        int velocity = 0;
    };
    PlainBeat _plainBeat;

    // What was worked out for the beat asked for last.
    std::uint32_t _strokesBeat = NotePiece::None;
    std::vector<Stroke> _strokes;
    std::uint32_t _velocityBeat = NotePiece::None;
    double _velocity = 0;
};

} // namespace zarn::playback
