// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesPlaying.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zarn {

class Note;

} // namespace zarn

namespace zarn::cmd {

/// Finds strings and frets for the notes of a range as a player would, staff by staff; see
/// `fingering::FingeringSolver`. Pitches stay, and so do notes around the range, which the hand
/// comes from and goes to. A note that no string can take loses string and fret, and is reported;
/// the rest is fingered all the same. Hammer-ons, pull-offs and slides that lead to no other fret
/// any more go. Fingers of the left hand are written on request. Staves without strings are passed
/// over.
///
/// Sends `ModifyBarRange` for the bars whose notes moved.
class ZARNCORE_EXPORT AutomaticFingerPositioning final : public ScoreCommand {
public:
    AutomaticFingerPositioning();
    ~AutomaticFingerPositioning() override;

    /// False when the range holds no note on a staff that can be fingered, and for options that
    /// allow no fret. The report, where there is one, is filled each time the command runs, which
    /// is before `Score`'s operation returns unless a macro collects it.
    bool init(Score *score, const ScoreModelRange &range,
              const fingering::FingeringOptions &options,
              std::shared_ptr<fingering::FingeringReport> report = nullptr);

private:
    /// A note with another string, fret or finger, and what they were and become.
    struct Move {
        unsigned track;
        unsigned staff;
        fingering::PassageSource place;
        std::int8_t stringBefore;
        std::int8_t fretBefore;
        Fingering fingerBefore;
        std::int8_t string;
        std::int8_t fret;
        Fingering finger;
    };

    std::vector<BeatSpan> findSpans() const;
    Fingering fingerOf(const Note &note, const fingering::Placement &place) const;
    Note &noteAt(const Move &move) const;
    void finger(const std::vector<BeatSpan> &spans);
    void moveNotes();
    void addMoves(const BeatSpan &staff, const fingering::ReadPassage &read,
                  const fingering::FingeringSolution &fingering);
    void addProblems(const BeatSpan &staff, const fingering::ReadPassage &read,
                     const fingering::FingeringSolution &fingering);

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    ScoreModelRange _range;
    fingering::FingeringOptions _options;
    std::shared_ptr<fingering::FingeringReport> _report;
    std::vector<Move> _moves;
    KeptBeats _links;
    TouchedBars _touched;
};

} // namespace zarn::cmd
