// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnEditLock.h>
#include <ZarnCore/commands/ZarnUndoHistory.h>

#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>

namespace zarn {

class OpenGroups;
class Score;
struct OpenGroup;

/// Executes the commands of a score and keeps them for undo and redo, a bounded number of them.
///
/// Each step is announced (`CommandPushed`, `CommandWillUndo`, `CommandWillRedo`), then done under
/// the stack's lock, then closed with `CommandExecuted`, still under the lock. A step that throws,
/// in the command or in a listener of its announcement, leaves the stack as it was; what a listener
/// of `CommandExecuted` throws reaches the caller after the step is done and stored. Between the
/// change and `CommandExecuted` the score's cursor leaves a place that is gone, or moves back on
/// undo; see `ScoreCursor::settle`.
///
/// Commands are made one step by macros, which wait and run together, and by transactions, which
/// run at once; see `MacroCommandRecorder` and `Transaction`. Each may be opened inside the other.
///
/// Editing belongs to one thread. Other threads read the score between `tryLock` and `unlock`.
/// Whatever changes the stack raises when it is called from inside a step: from a command, or from
/// a listener of `CommandWillUndo`, `CommandWillRedo`, `CommandExecuted` or of the events between.
/// While a transaction is open, a step is half done: what goes back in history or drops it raises.
///
/// A score that was replaced (`Score::setScoreModel`, assignment) has a stack as good as new: it
/// counts 0, no macro is open, and the state is clean.
class ZARNCORE_EXPORT CommandStack {
public:
    /// Without a score (null) no events are sent and no cursor is kept. The score is not owned.
    explicit CommandStack(Score *score);

    /// Destroys all commands, those of macros that are still open too.
    ~CommandStack();

    CommandStack(const CommandStack &) = delete;
    CommandStack &operator=(const CommandStack &) = delete;

    void _setScore(Score *score) noexcept { _score = score; }

    /// Takes over the command and executes it; while a macro is open, appends it to the innermost
    /// one instead. Drops what could be redone, and the oldest command when the ring is full; in a
    /// transaction that happens at its end. Raises for a null command.
    void pushCommand(Command *command);

    /// Reverts the newest command, and moves the score's cursor back to where it was before the
    /// command ran. Does nothing when there is none, or no room to keep it for `redo`.
    void undo();

    /// Executes the command that was undone last; does nothing when there is none.
    void redo();

    bool undoAvailable() const noexcept { return _history.undoAvailable(); }
    bool redoAvailable() const noexcept { return _history.redoAvailable(); }

    /// Number of occupied slots, those included that `setMaximumUndo` left without a command.
    std::uint32_t undoCount() const noexcept { return _history.undoCount(); }
    std::uint32_t redoCount() const noexcept { return _history.redoCount(); }

    std::uint32_t maximumUndo() const noexcept
    {
        return static_cast<std::uint32_t>(_history.size());
    }

    /// Destroys all commands and makes room for `count`. Of the first slots, those that held a
    /// command stay marked as occupied: they count in `undoCount` until pushes overwrite them and
    /// are empty for everything else. With 0, commands are executed and discarded.
    void setMaximumUndo(std::uint32_t count);

    /// Names of the commands, or their arguments, newest first.
    QStringList undoCommandList() const;
    QStringList redoCommandList() const;
    QStringList undoArgList() const;
    QStringList redoArgList() const;

    /// Opens a macro inside those that are open already. While one is open, a command's `init`
    /// checks values alone: whether its place exists shows when the outermost macro ends.
    void beginMacroCommand();

    /// Closes the innermost macro: pushes it, or destroys it with its commands, none of which was
    /// executed. When one of them raises, those before it are undone, the macro is gone, and the
    /// exception reaches the caller. Does nothing when no macro is open.
    void endMacroCommand(bool commit);

    /// Whether what is pushed now joins a macro and waits for its end.
    bool isMacroOpen() const noexcept;

    /// Whether a transaction is open that runs what is pushed at once, so that a step is half done.
    /// One inside of a macro waits as the macro does.
    bool isTransactionOpen() const noexcept;

    /// Marks the state of the score as the one that is saved; a new stack is clean. Raises in the
    /// middle of a transaction.
    void setClean();

    /// Whether undo and redo have led to the saved state: never again once the steps between are
    /// dropped. Commands that wait in an open macro have changed nothing yet.
    bool isClean() const noexcept;

    /// Forgets the saved cursors and calls `clearRedoStack` and `clearUndoStack`.
    void clear();

    void clearRedoStack();

    /// Destroys the commands from slot 0 to the newest one. In a ring that has wrapped, the older
    /// commands behind it are not reached: they stay until pushes overwrite them or
    /// `setMaximumUndo` releases them.
    void clearUndoStack();

    /// Keeps commands from running, so that the caller may read the score. False when a command is
    /// running or another reader is at work, on this thread too.
    bool tryLock() { return _lock.tryLock(); }

    /// Ends what `tryLock` began, on the same thread; raises on a thread that does not hold it.
    void unlock() { _lock.unlock(); }

    /// Writes the names of the newest commands, positions 0 to `last`, to the standard output.
    void printTop(std::uint32_t last) const;

private:
    friend class Score;
    friend class Transaction;

    template <class E>
    void announce(const Command &command);
    void announceExecuted();
    void execute(std::unique_ptr<Command> &command, UndoHistory::Run run);
    void settleCursor();
    void moveCursorBack(const ScoreCursor *cursor);

    std::uint64_t openTransaction(const QString &name);
    void commitTransaction(std::uint64_t number);
    void abandonTransaction(std::uint64_t number);
    void join(std::unique_ptr<Command> command);
    void runInTransaction(std::unique_ptr<Command> command);
    void keepTransaction(OpenGroup group);
    void takeBack(OpenGroup group);
    void takeBackOrphans();

    void prepareChange(const char *function);
    void prepareHistoryChange(const char *function);
    void replaceDocument(const std::function<void()> &exchange);
    void reset() noexcept;

    EditLock _lock;
    Score *_score;
    UndoHistory _history;
    std::unique_ptr<OpenGroups> _open;
};

} // namespace zarn
