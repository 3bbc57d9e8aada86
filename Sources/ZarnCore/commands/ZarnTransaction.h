// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>
#include <cstdint>

namespace zarn {

class Score;

/// Makes one undoable step of the operations that are called while it lives. Each runs when it is
/// called and answers truly, so that the next one may depend on it:
///
///     Transaction transaction(&score, QStringLiteral("Add a riff"));
///     if (score.createBeat(place, eighth) && score.setStringedNote(place, 0, 3))
///         transaction.commit();
///
/// Unless `commit` was called, everything is undone at the end of the scope, in reverse order, and
/// the cursor moves back: the score is as it was before. An operation that raises leaves the
/// transaction as it was before that operation; it may go on, and be committed.
///
/// Transactions nest: an inner one that is committed becomes a part of the outer one, one that is
/// not is taken back alone. A macro inside of a transaction runs when it ends. While a macro is
/// open nothing runs at once: a transaction inside of it waits with it, and answers as it does.
///
/// Listeners hear of the whole as they hear of a macro: `CommandPushed` with the name and
/// `BeginMacro` before the first operation runs, each operation's own events as it runs, `EndMacro`
/// and `CommandExecuted` at the commit. When it is taken back, each operation tells its reversal,
/// `EndMacro` and `CommandExecuted` follow, and the stack holds no step of it. A transaction in
/// which nothing runs sends nothing and leaves no step. Inner ones send `BeginMacro` and
/// `EndMacro`. Other threads may read the score between two operations.
///
/// While it is open, `undo`, `redo`, `clear` and its parts, `setMaximumUndo`, `setClean`, and
/// replacing the score's document raise. What can be redone is dropped by the commit.
class ZARNCORE_EXPORT Transaction {
public:
    /// Raises for a null score, which must outlive the transaction, and inside of a step.
    Transaction(Score *score, const QString &name);

    /// Takes everything back that was not committed. What is raised then is logged.
    ~Transaction();

    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// Ends the transaction and keeps its step. Raises while something that was opened inside of it
    /// is open, and when what was around it has ended; a listener of `EndMacro` that throws has
    /// everything taken back. A second call does nothing.
    void commit();

private:
    Score *_score;
    std::uint64_t _number;
    bool _isCommitted = false;
};

} // namespace zarn
