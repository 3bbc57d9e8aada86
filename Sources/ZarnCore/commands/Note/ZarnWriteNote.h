// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnBeatMarks.h>
#include <ZarnCore/model/notes/ZarnNotePosition.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <memory>
#include <optional>

namespace zarn {

class Staff;

/// Base of commands that write one note on a beat, in place of another note or beside those that
/// are there, or take one off. A beat with a note is no rest. A note that takes the place of
/// another keeps all of it but the pitch; a tie goes when the pitch changes, and with the note.
/// Sends `ModifyBarRange` for the bar, and for a neighbour that a tie led to.
class ZARNCORE_EXPORT WriteNote : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;
    ~WriteNote() override;

    /// Where a note comes to be.
    struct Placement {
        std::shared_ptr<Note> replaced; ///< empty to add a note

        /// Nothing to take `replaced` out; then there is one.
        std::optional<NotePosition> to;
    };

    /// The placement of a pitch in the place of a note, which may be none: it keeps its spelling
    /// when it has that pitch already.
    static Placement placementOf(std::shared_ptr<Note> replaced, int midi);

    /// What is to be written on the beat as it is now; nothing when it cannot be.
    virtual std::optional<Placement> placement(const Staff &staff, const Beat &beat) const = 0;

    /// False when there is no such beat, or no such note can be written on it.
    bool prepare(Score *score, const ScoreModelIndex &index);

    const ScoreModelIndex &index() const noexcept { return _index; }

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    std::optional<Placement> find() const;
    static std::shared_ptr<Note> makeNote(const Note *old, const NotePosition &position);

    ScoreModelIndex _index;
    std::shared_ptr<Note> _written;  ///< while it is out of the beat
    std::shared_ptr<Note> _replaced; ///< while it is out of the beat
    unsigned _noteIndex = 0;
    bool _isWritten = false; ///< rather than only taken out
    BeatMarks _before;       ///< of the beat
    std::optional<KeptLinks> _links;
    TouchedBars _touched;
};

} // namespace zarn
