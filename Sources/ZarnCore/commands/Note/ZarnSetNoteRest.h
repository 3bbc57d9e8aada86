// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <memory>
#include <vector>

namespace zarn::cmd {

/// Makes rests of beats, which keep their length; their notes are kept for undo. Place holders
/// become rests too. Ties that led to the notes are undone. Sends `ModifyBarRange`, or
/// `ModifyBarRangeAllTracks` for a range over all tracks; `ModifyBarRange` for a neighbour that a
/// tie led to as well.
class ZARNCORE_EXPORT SetNoteRest final : public ScoreCommand {
public:
    SetNoteRest();
    ~SetNoteRest() override;

    /// Every beat of the range. False when it holds none.
    bool init(Score *score, const ScoreModelRange &range);

private:
    struct Emptied {
        std::vector<std::shared_ptr<Note>> notes; ///< while they are out of the beat
        BeatMarks marks;
    };
    struct Stretch {
        BeatSpan span;
        std::vector<Emptied> beats;
        KeptLinks links;
    };

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    ScoreModelRange _range;
    std::vector<Stretch> _stretches;
    TouchedBars _touched;
};

} // namespace zarn::cmd
