// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/BeatGrid.h>
#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/PatternTable.h>
#include <ZarnCore/io/midi/TempoLine.h>

#include <array>
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

    /// What onsets in a beat cost in each family of divisions, and the best grid of it.
    struct BeatFit {
        std::array<double, BeatGrid::familyCount> costs;
        std::array<const BeatGrid *, BeatGrid::familyCount> grids;
        std::array<std::size_t, BeatGrid::familyCount> starts; ///< in `_starts`; or `notYet`
    };
    static constexpr auto notYet = static_cast<std::size_t>(-1);

    /// A beat in which notes begin, or a pause; `before` has the best family to come from.
    struct Step {
        std::size_t beat;  ///< `noBeat` for a pause
        std::size_t first; ///< its notes
        std::size_t last;
        std::size_t fit; ///< in `_fits`
        std::array<std::uint8_t, BeatGrid::familyCount> before;
    };
    static constexpr auto noBeat = static_cast<std::size_t>(-1);
    using Costs = std::array<double, BeatGrid::familyCount>;

    std::size_t beatAt(MidiTime time) const noexcept;
    void joinChords(PlayedNotes &notes) const;
    void setStarts(PlayedNotes &notes);
    void addPause(Costs &costs);
    void addStep(Step step, Costs &costs);
    std::size_t fitOf(const BeatPlace &place, const PlayedNotes &notes, std::size_t first,
                      std::size_t last);
    const MidiTime *startsOf(const Step &step, std::size_t family, const PlayedNotes &notes);
    static BeatFit fitAnew(const BeatPlace &place, const PlayedNotes &notes, std::size_t first,
                           std::size_t last);
    void setEnds(PlayedNotes &notes) const;
    std::size_t onsetFrom(MidiTime end, std::size_t note) const noexcept;
    MidiTime endFor(std::size_t note, MidiTime playedEnd, const PlayedNotes &notes,
                    double looseness) const;
    double looseness(const PlayedNotes &notes) const;

    PlayingAccuracy _accuracy;
    MidiTime _shortest; ///< what notes that are too short for any grid get
    MidiTime _cutShort; ///< what an end may lack of the next onset anyway
    std::map<MidiTime, std::vector<BeatGrid>> _grids;
    std::vector<BeatPlace> _beats;
    mutable std::size_t _lastBeat = 0;
    std::vector<const BeatGrid *> _chosen; ///< by beat; null where nothing begins
    std::vector<MidiTime> _heard;          ///< onsets of the notes, chords made one
    std::vector<Step> _steps;

    /// Of files that were written the fits of beats that are alike are the same: they are found
    /// once, and `_known` numbers the beats.
    PatternTable _known;
    std::vector<std::size_t> _knownFits; ///< in `_fits`, by number
    std::vector<BeatFit> _fits;
    std::vector<MidiTime> _starts; ///< where the notes of a beat begin in it
    std::vector<std::uint64_t> _pattern;
};

} // namespace zarn::io
