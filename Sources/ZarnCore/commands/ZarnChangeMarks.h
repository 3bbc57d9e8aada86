// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnKeptRange.h>
#include <ZarnCore/commands/ZarnMarkedPlace.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnKeptMarks.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <cstddef>
#include <vector>

namespace zarn {

/// What a command keeps beside the marks and details of the nodes that it changes.
struct AlsoKept {
    bool otherMarks = false; ///< of notes those of their beats, of beats those of their notes
    bool rhythms = false;    ///< of beats
    bool spans = false;      ///< pedals and the like, see `ScoreCommand::keepSpans`
    bool links = false;      ///< what the nodes are linked with, which is mended then
};

/// Base of commands that change how the beats or notes of a range are marked. Keeps what was there
/// for undo, exclusions included: eight bytes for each node that was marked unlike the one before
/// it, a bit or two for the others, and the details that changed.
///
/// Which nodes a range means: its beats; as notes, all those of its beats, but a range that is one
/// place means the note that it names: on a fretted staff the one on its string, elsewhere the one
/// of its key or articulation, or all of the beat where it names none.
///
/// A concrete command implements `takes` and `change`, and its `init` ends with `prepare`.
/// `Node` is `Beat` or `Note`; for beats, `beat` and `node` are one.
template <class Node>
class ZARNCORE_EXPORT ChangeMarks : public ScoreCommand {
protected:
    explicit ChangeMarks(const QString &name) : ScoreCommand(name) { }

    /// Remembers where to work; false when no node of the range takes the change.
    bool prepare(Score *score, const ScoreModelRange &range, AlsoKept also = {});

    const ScoreModelRange &range() const noexcept { return _range; }

    /// Whether a node takes the change; those that do not are passed over.
    virtual bool takes(const MarkedPlace &place, const Beat &beat, const Node &node) const = 0;

    /// Changes marks and details of a node, and what `AlsoKept` names; the notes stay in the beats.
    virtual void change(const MarkedPlace &place, Beat &beat, Node &node) = 0;

    /// Called before the nodes are looked at, for what depends on several of them.
    virtual void begin(ScoreModel &) { }

    /// The kinds of spans that begin where the nodes change.
    virtual std::vector<SpanKind> givenSpans() const { return {}; }

    /// Called when all nodes are changed, and when all have back what they had, for what follows
    /// from that elsewhere. The first may throw; the second is called then.
    virtual void followChange(ScoreModel &) { }
    virtual void followReturn(ScoreModel &) { }

    /// Whether the first node that takes the change is the only one to be changed.
    virtual bool isForFirstOnly() const { return false; }

    /// Sends the events of a change, forwards and backwards: `ModifyBarRange`, or for a range over
    /// several tracks `ModifyBarRangeAllTracks`; `ModifyBarRange` for other bars with links, too.
    virtual void announce();

private:
    void apply() final;
    void revert() final;
    void announceApplied() final { announce(); }
    void announceReverted() final { announce(); }
    void putBack();

    ScoreModelRange _range;
    AlsoKept _also;
    std::size_t _nodeCount = 0; ///< that the walk over the range came to
    std::vector<bool> _isTaken; ///< per node, in order; those behind the end are
    KeptRange _links;
    KeptMarks<Beat> _beats;
    KeptMarks<Note> _notes;
    std::vector<RhythmValue> _rhythms;
};

extern template class ChangeMarks<Beat>;
extern template class ChangeMarks<Note>;

} // namespace zarn
