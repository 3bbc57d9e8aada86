// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/BeatGrid.h>
#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/TempoLine.h>

#include <map>
#include <vector>

namespace zarn::io {

/// How exactly a file was played.
struct PlayingAccuracy {
    bool isPlayed = false;       ///< by hands; else every time is written
    double tick = 0;             ///< length of one, in the parts of a quarter
    double deviationSeconds = 0; ///< of onsets, when played
};

/// Measures the distance of all onsets to the nearest 16ths and triplets: files that were written
/// are on them nearly always.
PlayingAccuracy measureAccuracy(const std::vector<PlayedNotes *> &parts,
                                const std::vector<TempoChange> &tempos, double tick);

/// Fits the notes of a staff to the beats of the score: beat by beat one way to divide it, so that
/// all in all notes are moved little and what is written is plain.
class RhythmQuantizer {
public:
    /// The line and the tempos outlive the quantizer.
    RhythmQuantizer(const MeterLine &bars, const std::vector<TempoChange> &tempos,
                    const PlayingAccuracy &accuracy, const GridChoice &choice);

    /// Gives every note its start and end. The notes are in the order in which they were played,
    /// and are put into the order in which they are written.
    void quantize(PlayedNotes &notes);

    /// The same for drums, whose ends say nothing: a note lasts up to the next one or to the end of
    /// its beat.
    void quantizeDrums(PlayedNotes &notes);

private:
    struct BeatPlace {
        MidiTime start;
        MidiTime length;
        const std::vector<BeatGrid> *grids;
        double deviation;
    };

    /// The choice of a grid for a beat in which notes begin.
    struct BeatChoice {
        std::size_t beat;
        const BeatGrid *grid;
    };

    std::size_t beatAt(MidiTime time) const noexcept;
    void joinChords(PlayedNotes &notes) const;
    void setStarts(PlayedNotes &notes);
    void setEnds(PlayedNotes &notes) const;
    std::size_t onsetFrom(MidiTime end, std::size_t note) const noexcept;
    MidiTime endFor(std::size_t note, MidiTime playedEnd, const PlayedNotes &notes,
                    double looseness) const;
    double looseness(const PlayedNotes &notes) const;

    PlayingAccuracy _accuracy;
    MidiTime _shortest; ///< what notes that are too short for any grid get
    std::map<MidiTime, std::vector<BeatGrid>> _grids;
    std::vector<BeatPlace> _beats;
    mutable std::size_t _lastBeat = 0;
    std::vector<const BeatGrid *> _chosen; ///< by beat; null where nothing begins
    std::vector<MidiTime> _heard;          ///< onsets of the notes, chords made one
};

} // namespace zarn::io
