// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <memory>
#include <optional>

namespace zarn {

class Note;
class Staff;

/// Base of commands that write one note on a beat, in place of another note or beside those that
/// are there. The beat is no rest afterwards. A note that takes the place of another keeps all of
/// it but the pitch; a tie goes when the pitch changes. Sends `ModifyBarRange`
/// for the bar, and for a neighbour that a tie led to.
class ZARNCORE_EXPORT WriteNote : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;
    ~WriteNote() override;

    /// Where a note comes to be.
    struct Placement {
        std::shared_ptr<Note> replaced; ///< empty to add a note
        int midi = -1;
        int string = -1;
        int fret = -1;
    };

    /// What is to be written on the beat as it is now; nothing when it cannot be.
    virtual std::optional<Placement> placement(const Staff &staff, const Beat &beat) const = 0;

    /// False when there is no such beat, or no such note can be written on it.
    bool prepare(Score *score, const ScoreModelIndex &index);

    const ScoreModelIndex &index() const noexcept { return _index; }

private:
    struct BeatState {
        bool isPlaceHolder = false;
        bool isWholeBarRest = false;
    };

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    std::optional<Placement> find() const;
    static std::shared_ptr<Note> makeNote(const Placement &placement);

    ScoreModelIndex _index;
    std::shared_ptr<Note> _written;  ///< while it is out of the beat
    std::shared_ptr<Note> _replaced; ///< while it is out of the beat
    unsigned _noteIndex = 0;
    BeatState _before;
    std::optional<KeptLinks> _links;
    TouchedBars _touched;
};

} // namespace zarn
