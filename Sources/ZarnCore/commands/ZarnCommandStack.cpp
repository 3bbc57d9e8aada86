// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnCommandStack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/OpenGroups.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <optional>
#include <utility>

namespace zarn {

namespace {

constexpr std::size_t defaultMaximumUndo = 69;

} // namespace

CommandStack::CommandStack(Score *score)
    : _score(score), _history(defaultMaximumUndo), _open(std::make_unique<OpenGroups>())
{
}

CommandStack::~CommandStack() = default;

// What is announced carries a name, which nobody need be given when nobody listens.
template <class E>
void CommandStack::announce(const Command &command)
{
    if (_score != nullptr && _score->isHeard<E>())
        _score->notify(this, E(command.name()));
}

void CommandStack::announceExecuted()
{
    if (_score != nullptr)
        _score->notify(this, evt::CommandExecuted());
}

void CommandStack::prepareChange(const char *function)
{
    _lock.requireOutsideStep(function);
    if (!_open->isEmpty())
        takeBackOrphans();
}

void CommandStack::prepareHistoryChange(const char *function)
{
    prepareChange(function);
    if (isTransactionOpen())
        ZARN_RAISE_IN(function,
                      "A transaction is open: its step must end before the steps can change");
}

// A listener of CommandPushed finds the stack untouched and unlocked, and may still push a command
// that has to come first.
void CommandStack::pushCommand(Command *command)
{
    std::unique_ptr<Command> owned(command);
    ZARN_ASSERT_IN("zarn::CommandStack::pushCommand", command != NULL);
    prepareChange("zarn::CommandStack::pushCommand");
    if (_open->isEmpty())
        announce<evt::CommandPushed>(*owned);
    if (!_open->isEmpty()) {
        join(std::move(owned));
        return;
    }
    const EditLock::Step step(_lock);
    execute(owned, UndoHistory::Run::First);
}

/// Stores the command in the ring and runs it. What it displaces dies only when it has run: when it
/// throws, the stack is as it was and the command is the caller's again.
void CommandStack::execute(std::unique_ptr<Command> &command, UndoHistory::Run run)
{
    // Before the lock: what is displaced dies when the lock is free again.
    std::unique_ptr<Command> displaced = std::move(command);
    const EditLock::Hold hold(_lock);
    std::optional<ScoreCursor> cursor;
    if (_score != nullptr)
        cursor.emplace(_score->scoreCursor());
    Command &running = *displaced;
    const UndoHistory::Trial trial = _history.store(displaced, run);
    try {
        running.redo();
    } catch (...) {
        _history.takeOut(trial, displaced);
        command = std::move(displaced);
        throw;
    }
    _history.keep(trial, cursor.has_value() ? &*cursor : nullptr);
    settleCursor();
    announceExecuted();
}

void CommandStack::undo()
{
    prepareHistoryChange("zarn::CommandStack::undo");
    if (!_history.undoAvailable() || !_history.hasRoomForRedo())
        return;
    const EditLock::Step step(_lock);
    std::unique_ptr<Command> command = _history.takeUndo();
    std::optional<EditLock::Hold> hold;
    try {
        announce<evt::CommandWillUndo>(*command);
        hold.emplace(_lock);
        command->undo();
    } catch (...) {
        _history.putBackUndo(std::move(command));
        throw;
    }
    // Stored before the cursor moves: a listener of that may throw.
    moveCursorBack(_history.keepUndone(std::move(command)));
    announceExecuted();
}

void CommandStack::redo()
{
    prepareHistoryChange("zarn::CommandStack::redo");
    if (!_history.redoAvailable())
        return;
    const EditLock::Step step(_lock);
    std::unique_ptr<Command> command = _history.takeRedo();
    try {
        announce<evt::CommandWillRedo>(*command);
        execute(command, UndoHistory::Run::Again);
    } catch (...) {
        if (command != nullptr)
            _history.putBackRedo(std::move(command));
        throw;
    }
}

void CommandStack::settleCursor()
{
    if (_score != nullptr)
        _score->scoreCursor().settle();
}

/// To where it was, when that is known.
void CommandStack::moveCursorBack(const ScoreCursor *cursor)
{
    if (_score != nullptr && cursor != nullptr)
        _score->scoreCursor().moveToCursor(*cursor);
    else
        settleCursor();
}

void CommandStack::setMaximumUndo(std::uint32_t count)
{
    prepareHistoryChange("zarn::CommandStack::setMaximumUndo");
    ZARN_ASSERT_IN("zarn::CommandStack::setMaximumUndo",
                   count <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()));
    _history.resize(count);
}

QStringList CommandStack::undoCommandList() const
{
    return _history.undoTexts(&Command::name, _history.size());
}

QStringList CommandStack::undoArgList() const
{
    return _history.undoTexts(&Command::args, _history.size());
}

QStringList CommandStack::redoCommandList() const
{
    return _history.redoTexts(&Command::name);
}

QStringList CommandStack::redoArgList() const
{
    return _history.redoTexts(&Command::args);
}

bool CommandStack::isMacroOpen() const noexcept
{
    return _open->isCollecting();
}

bool CommandStack::isTransactionOpen() const noexcept
{
    return _open->isRunning();
}

void CommandStack::beginMacroCommand()
{
    prepareChange("zarn::CommandStack::beginMacroCommand");
    _open->openMacro(_score);
}

void CommandStack::endMacroCommand(bool commit)
{
    std::unique_ptr<MacroCommand> macro = _open->takeMacro();
    if (commit && macro != nullptr)
        pushCommand(macro.release());
}

/// Takes over a command while a macro or a transaction is open.
void CommandStack::join(std::unique_ptr<Command> command)
{
    if (_open->isCollecting())
        _open->innermost().commands->pushCommand(command.release());
    else
        runInTransaction(std::move(command));
}

void CommandStack::runInTransaction(std::unique_ptr<Command> command)
{
    OpenGroup &outermost = _open->outermost();
    if (!outermost.isAnnounced) {
        const std::uint64_t number = outermost.transaction;
        outermost.isAnnounced = true;
        try {
            announce<evt::CommandPushed>(*outermost.commands);
        } catch (...) {
            OpenGroup *const still = _open->findTransaction(number);
            if (still != nullptr)
                still->isAnnounced = still->isBegun;
            throw;
        }
        // Anew: a listener may have opened or ended something.
        pushCommand(command.release());
        return;
    }
    const EditLock::Step step(_lock);
    const EditLock::Hold hold(_lock);
    for (OpenGroup &group : _open->all()) {
        if (group.isBegun)
            continue;
        if (_score != nullptr)
            group.cursor.emplace(_score->scoreCursor());
        group.commands->begin();
        group.isBegun = true;
    }
    _open->innermost().commands->run(std::move(command));
    settleCursor();
}

std::uint64_t CommandStack::openTransaction(const QString &name)
{
    prepareChange("zarn::Transaction::Transaction");
    return _open->openTransaction(_score, name);
}

void CommandStack::commitTransaction(std::uint64_t number)
{
    constexpr auto function = "zarn::Transaction::commit";
    prepareChange(function);
    const OpenGroup *const group = _open->findTransaction(number);
    if (group == nullptr)
        ZARN_RAISE_IN(function, "The transaction has ended with what was around it");
    if (group != &_open->innermost())
        ZARN_RAISE_IN(function, "What was opened inside of the transaction must end first");
    OpenGroup ended = _open->takeInnermost();
    if (!ended.isCollecting)
        keepTransaction(std::move(ended));
    else if (ended.commands->commandCount() != 0)
        _open->innermost().commands->pushCommand(ended.commands.release());
}

/// Makes a step of what has run, or a part of the transaction around it.
void CommandStack::keepTransaction(OpenGroup group)
{
    if (!group.isBegun)
        return;
    const EditLock::Step step(_lock);
    std::unique_ptr<Command> kept; // before the lock: what is displaced dies when it is free again
    const EditLock::Hold hold(_lock);
    const ScoreCursor *const cursor = group.cursor.has_value() ? &*group.cursor : nullptr;
    try {
        group.commands->end();
    } catch (...) {
        const Score::TakingBack unstoppable(_score);
        moveCursorBack(cursor);
        throw;
    }
    if (group.commands->commandCount() == 0)
        return;
    if (!_open->isEmpty()) {
        _open->innermost().commands->pushCommand(group.commands.release());
        return;
    }
    kept = std::move(group.commands);
    _history.keep(_history.store(kept, UndoHistory::Run::First), cursor);
    announceExecuted();
}

/// Marks the transaction where nothing can be changed: it is taken back before the next change.
void CommandStack::abandonTransaction(std::uint64_t number)
{
    if (OpenGroup *const group = _open->findTransaction(number))
        group->isOrphan = true;
    _lock.requireOutsideStep("zarn::Transaction::~Transaction");
    while (_open->findTransaction(number) != nullptr)
        takeBack(_open->takeInnermost());
}

void CommandStack::takeBackOrphans()
{
    const auto findOrphan = [this] {
        auto &all = _open->all();
        const auto found = std::find_if(all.begin(), all.end(),
                                        [](const OpenGroup &group) { return group.isOrphan; });
        return found != all.end() ? found->transaction : 0;
    };
    while (const std::uint64_t orphan = findOrphan())
        abandonTransaction(orphan);
}

/// Undoes what has run of a group that was taken out.
void CommandStack::takeBack(OpenGroup group)
{
    if (!group.isBegun)
        return;
    const EditLock::Step step(_lock);
    const EditLock::Hold hold(_lock);
    {
        const Score::TakingBack unstoppable(_score);
        group.commands->takeBack();
        moveCursorBack(group.cursor.has_value() ? &*group.cursor : nullptr);
    }
    if (_open->isEmpty() && group.commands->commandCount() != 0)
        announceExecuted();
}

void CommandStack::setClean()
{
    prepareHistoryChange("zarn::CommandStack::setClean");
    _history.setClean();
}

bool CommandStack::isClean() const noexcept
{
    return _history.isClean() && !_open->hasRun();
}

/// Forgets everything and has the document exchanged where no reader is at work.
void CommandStack::replaceDocument(const std::function<void()> &exchange)
{
    prepareHistoryChange("zarn::CommandStack::replaceDocument");
    reset();
    const EditLock::Hold hold(_lock);
    exchange();
}

/// As good as new, with as much room as before.
void CommandStack::reset() noexcept
{
    _open->clear();
    _history.reset();
}

void CommandStack::clear()
{
    prepareHistoryChange("zarn::CommandStack::clear");
    _history.dropCursors();
    _history.dropRedo();
    _history.dropUndo();
}

void CommandStack::clearRedoStack()
{
    prepareHistoryChange("zarn::CommandStack::clearRedoStack");
    _history.dropRedo();
}

void CommandStack::clearUndoStack()
{
    prepareHistoryChange("zarn::CommandStack::clearUndoStack");
    _history.dropUndo();
}

void CommandStack::printTop(std::uint32_t last) const
{
    const QStringList names = _history.undoTexts(&Command::name, std::size_t(last) + 1);
    std::cout << "***** STACK TOP " << last << " *****\n";
    for (int position = 0; position < names.size(); ++position)
        std::cout << position << " " << names[position].toStdString() << "\n";
    std::cout << "***********************" << std::endl;
}

} // namespace zarn
