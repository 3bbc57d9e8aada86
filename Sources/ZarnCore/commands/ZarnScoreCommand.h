// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCommand.h>
#include <ZarnCore/model/notes/ZarnSpanLine.h>

#include <memory>

namespace zarn {

class Score;
class ScoreBase;
class ScoreModel;
class ScoreModelRange;

/// Base of commands that change a score and announce it: keeps change and announcement apart, so
/// that a listener that throws finds the change taken back.
///
/// A concrete command takes its score in `init`, and implements the four private operations.
class ZARNCORE_EXPORT ScoreCommand : public Command {
public:
    ~ScoreCommand() override;

    void redo() final;
    void undo() final;

protected:
    explicit ScoreCommand(const QString &name);

    void setScore(Score *score) noexcept;
    ScoreBase &score() const noexcept { return *_base; }
    ScoreModel &model() const noexcept;

    /// What `init` answers about the command's place: whether it is there, as `exists()` says.
    /// While a macro is open that is for `apply` to find out: the commands in front of this one
    /// have not run yet, and may be what makes the place.
    template <class Exists>
    bool expectPlace(Exists exists) const
    {
        return isCollected() || exists();
    }

    /// Raises, with name and arguments, when the command's place does not exist when it runs.
    void requirePlace(bool exists) const;

    /// For `apply`, before it puts beats into bars that it announces, takes some out, or changes
    /// their lengths or what is marked at the ends of a span alone: pedals, lines behind words,
    /// numbered slurs, words of lyrics. These are mended when it is done, wherever they lead to;
    /// that is taken back with the rest, and `ModifyBarRange` tells of other bars. See `KeptSpans`.
    void keepSpans(unsigned track, unsigned staff, unsigned firstBar, unsigned lastBar);
    void keepSpans(const ScoreModelRange &range);

    /// What begins of a kind is given by the command.
    void setGivenSpan(SpanKind kind);

private:
    struct SpanWork;

    void perform();
    void takeBack();
    void announceSpans();

    /// Whether the command will join a macro.
    bool isCollected() const noexcept;

    /// Changes the model, or throws and leaves it as it was. What undo needs is read here, not in
    /// `init`: commands of the same macro may have run since.
    virtual void apply() = 0;

    /// Takes the change back, or throws and leaves it.
    virtual void revert() = 0;

    /// Sends the events of a change that was applied, or of one that was reverted.
    virtual void announceApplied() = 0;
    virtual void announceReverted() = 0;

    Score *_score = nullptr;
    ScoreBase *_base = nullptr;       ///< the same
    std::unique_ptr<SpanWork> _spans; ///< of commands that may change any
};

} // namespace zarn
