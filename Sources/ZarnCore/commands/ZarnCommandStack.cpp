// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnCommandStack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <utility>

namespace zarn {

namespace {

constexpr std::size_t defaultMaximumUndo = 69;

} // namespace

/// Marks that a step is under way, on every way out no longer.
class CommandStack::Step {
public:
    explicit Step(CommandStack &stack) noexcept : _stack(stack) { _stack._isInsideStep = true; }
    ~Step() { _stack._isInsideStep = false; }
    Step(const Step &) = delete;
    Step &operator=(const Step &) = delete;

private:
    CommandStack &_stack;
};

/// Holds the stack's mutex, and says which thread does.
class CommandStack::Lock {
public:
    explicit Lock(CommandStack &stack) : _stack(stack)
    {
        _stack.checkNotLockedHere("zarn::CommandStack::lock");
        _stack._mutex.lock();
        _stack._lockOwner.store(std::this_thread::get_id(), std::memory_order_relaxed);
    }
    ~Lock()
    {
        _stack._lockOwner.store(std::thread::id(), std::memory_order_relaxed);
        _stack._mutex.unlock();
    }
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

private:
    CommandStack &_stack;
};

CommandStack::CommandStack(Score *score)
    : _score(score), _redo(defaultMaximumUndo), _undo(defaultMaximumUndo)
{
}

CommandStack::~CommandStack()
{
    dropCursors();
    dropRedo();
    dropUndo();
}

template <class E>
void CommandStack::announce(const E &event)
{
    if (_score != nullptr)
        _score->notify(this, event);
}

void CommandStack::checkOutsideStep(const char *function) const
{
    if (_isInsideStep)
        ZARN_RAISE_IN(function,
                      "The command stack is in the middle of a step: a command, or a "
                      "listener of its events, must not change the stack");
    checkNotLockedHere(function);
}

void CommandStack::checkNotLockedHere(const char *function) const
{
    const std::thread::id owner = _lockOwner.load(std::memory_order_relaxed);
    if (owner != std::thread::id() && owner == std::this_thread::get_id())
        ZARN_RAISE_IN(function,
                      "The command stack is locked by this very thread: call unlock() "
                      "before editing");
}

// A listener of CommandPushed finds the stack untouched and unlocked, and may still push a command
// that has to come first.
void CommandStack::pushCommand(Command *command)
{
    std::unique_ptr<Command> owned(command);
    ZARN_ASSERT_IN("zarn::CommandStack::pushCommand", command != NULL);
    checkOutsideStep("zarn::CommandStack::pushCommand");
    if (!_openMacros.empty()) {
        _openMacros.back()->pushCommand(owned.release());
        return;
    }
    announce(evt::CommandPushed(owned->name()));
    const Step step(*this);
    execute(owned, Executed::FirstTime);
}

/// Stores the command in the ring and runs it. What it displaces dies only when it has run: when it
/// throws, the stack is as it was and the command is the caller's again.
void CommandStack::execute(std::unique_ptr<Command> &command, Executed executed)
{
    // Before the lock: what is displaced dies when the lock is free again.
    std::unique_ptr<Command> displaced = std::move(command);
    const Lock lock(*this);
    std::optional<ScoreCursor> cursor;
    if (_score != nullptr)
        cursor.emplace(_score->scoreCursor());
    Command &running = *displaced;
    const std::int32_t undoTop = _undoTop;
    const std::int32_t redoTop = _redoTop;
    const std::size_t place = placeAfter(undoTop);
    Slot *const slot = _undo.empty() ? nullptr : &_undo[place];
    const bool wasOccupied = slot != nullptr && slot->isOccupied;
    if (slot != nullptr) {
        slot->command.swap(displaced);
        slot->isOccupied = true;
        _undoTop = static_cast<std::int32_t>(place);
    }
    if (executed == Executed::FirstTime)
        _redoTop = -1;
    try {
        running.redo();
    } catch (...) {
        if (slot != nullptr) {
            slot->command.swap(displaced);
            slot->isOccupied = wasOccupied;
        }
        _undoTop = undoTop;
        _redoTop = redoTop;
        command = std::move(displaced);
        throw;
    }
    if (slot != nullptr) {
        slot->cursor.reset();
        if (cursor.has_value())
            slot->cursor.emplace(*cursor);
    }
    if (executed == Executed::FirstTime) {
        _redoTop = redoTop;
        dropRedo();
    }
    if (_stepsSinceClean.has_value())
        ++*_stepsSinceClean;
    if (_score != nullptr)
        _score->scoreCursor().settle();
    announce(evt::CommandExecuted());
}

void CommandStack::undo()
{
    checkOutsideStep("zarn::CommandStack::undo");
    if (!undoAvailable() || _redoTop + 1 >= static_cast<std::int32_t>(_redo.size()))
        return;
    const Step step(*this);
    const std::int32_t place = _undoTop;
    Slot &slot = _undo[static_cast<std::size_t>(place)];
    std::unique_ptr<Command> command = std::move(slot.command);
    slot.isOccupied = false;
    _undoTop = place > 0 ? place - 1 : static_cast<std::int32_t>(_undo.size()) - 1;
    std::optional<Lock> lock;
    try {
        announce(evt::CommandWillUndo(command->name()));
        lock.emplace(*this);
        command->undo();
    } catch (...) {
        slot.command = std::move(command);
        slot.isOccupied = true;
        _undoTop = place;
        throw;
    }
    // Stored before the cursor moves: a listener of that may throw.
    _redo[static_cast<std::size_t>(++_redoTop)] = std::move(command);
    if (_stepsSinceClean.has_value())
        --*_stepsSinceClean;
    if (_score != nullptr) {
        if (slot.cursor.has_value())
            _score->scoreCursor().moveToCursor(*slot.cursor);
        else
            _score->scoreCursor().settle();
    }
    slot.cursor.reset();
    announce(evt::CommandExecuted());
}

void CommandStack::redo()
{
    checkOutsideStep("zarn::CommandStack::redo");
    if (!redoAvailable())
        return;
    const Step step(*this);
    const std::int32_t place = _redoTop--;
    std::unique_ptr<Command> command = std::move(_redo[static_cast<std::size_t>(place)]);
    try {
        announce(evt::CommandWillRedo(command->name()));
        execute(command, Executed::Again);
    } catch (...) {
        if (command != nullptr) {
            _redo[static_cast<std::size_t>(place)] = std::move(command);
            _redoTop = place;
        }
        throw;
    }
}

bool CommandStack::undoAvailable() const noexcept
{
    return _undoTop >= 0 && _undo[static_cast<std::size_t>(_undoTop)].command != nullptr;
}

std::uint32_t CommandStack::undoCount() const noexcept
{
    return static_cast<std::uint32_t>(std::count_if(
        _undo.begin(), _undo.end(), [](const Slot &slot) { return slot.isOccupied; }));
}

void CommandStack::setMaximumUndo(std::uint32_t count)
{
    checkOutsideStep("zarn::CommandStack::setMaximumUndo");
    ZARN_ASSERT_IN("zarn::CommandStack::setMaximumUndo",
                   count <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()));
    std::vector<std::unique_ptr<Command>> redo(count);
    std::vector<Slot> undo(count);
    for (std::size_t i = 0; i < std::min(undo.size(), _undo.size()); ++i)
        undo[i].isOccupied = _undo[i].isOccupied;
    _redoTop = -1;
    _undoTop = -1;
    _redo.swap(redo);
    _undo.swap(undo);
    if (!isClean())
        _stepsSinceClean.reset();
}

QStringList CommandStack::undoCommandList() const
{
    QStringList names;
    visitUndo(_undo.size(), [&](const Command &command) { names.append(command.name()); });
    return names;
}

QStringList CommandStack::undoArgList() const
{
    QStringList args;
    visitUndo(_undo.size(), [&](const Command &command) { args.append(command.args()); });
    return args;
}

QStringList CommandStack::redoCommandList() const
{
    QStringList names;
    visitRedo([&](const Command &command) { names.append(command.name()); });
    return names;
}

QStringList CommandStack::redoArgList() const
{
    QStringList args;
    visitRedo([&](const Command &command) { args.append(command.args()); });
    return args;
}

void CommandStack::beginMacroCommand()
{
    checkOutsideStep("zarn::CommandStack::beginMacroCommand");
    _openMacros.push_back(std::make_unique<MacroCommand>(_score));
}

void CommandStack::endMacroCommand(bool commit)
{
    if (_openMacros.empty())
        return;
    std::unique_ptr<MacroCommand> macro = std::move(_openMacros.back());
    _openMacros.pop_back();
    if (commit)
        pushCommand(macro.release());
}

void CommandStack::setClean()
{
    checkOutsideStep("zarn::CommandStack::setClean");
    _stepsSinceClean = 0;
}

/// Forgets everything and has the document exchanged where no reader is at work.
void CommandStack::replaceDocument(const std::function<void()> &exchange)
{
    checkOutsideStep("zarn::CommandStack::replaceDocument");
    reset();
    const Lock lock(*this);
    exchange();
}

/// As good as new, with as much room as before.
void CommandStack::reset() noexcept
{
    _openMacros.clear();
    for (Slot &slot : _undo)
        slot = Slot();
    for (auto &command : _redo)
        command.reset();
    _undoTop = -1;
    _redoTop = -1;
    _stepsSinceClean = 0;
}

void CommandStack::clear()
{
    checkOutsideStep("zarn::CommandStack::clear");
    dropCursors();
    dropRedo();
    dropUndo();
}

void CommandStack::clearRedoStack()
{
    checkOutsideStep("zarn::CommandStack::clearRedoStack");
    dropRedo();
}

void CommandStack::clearUndoStack()
{
    checkOutsideStep("zarn::CommandStack::clearUndoStack");
    dropUndo();
}

bool CommandStack::tryLock()
{
    const auto self = std::this_thread::get_id();
    if (_lockOwner.load(std::memory_order_relaxed) == self || !_mutex.try_lock())
        return false;
    _lockOwner.store(self, std::memory_order_relaxed);
    return true;
}

void CommandStack::unlock()
{
    ZARN_ASSERT_IN("zarn::CommandStack::unlock",
                   _lockOwner.load(std::memory_order_relaxed) == std::this_thread::get_id());
    _lockOwner.store(std::thread::id(), std::memory_order_relaxed);
    _mutex.unlock();
}

void CommandStack::printTop(std::uint32_t last) const
{
    std::cout << "***** STACK TOP " << last << " *****\n";
    std::size_t position = 0;
    visitUndo(std::size_t(last) + 1, [&](const Command &command) {
        std::cout << position++ << " " << command.name().toStdString() << "\n";
    });
    std::cout << "***********************" << std::endl;
}

void CommandStack::dropCursors() noexcept
{
    for (Slot &slot : _undo)
        slot.cursor.reset();
}

void CommandStack::dropRedo() noexcept
{
    if (_redoTop >= 0 && _stepsSinceClean < 0)
        _stepsSinceClean.reset();
    for (; _redoTop >= 0; --_redoTop)
        _redo[static_cast<std::size_t>(_redoTop)].reset();
}

void CommandStack::dropUndo() noexcept
{
    if (!undoAvailable())
        return;
    if (_stepsSinceClean > 0)
        _stepsSinceClean.reset();
    for (std::int32_t i = 0; i <= _undoTop; ++i)
        _undo[static_cast<std::size_t>(i)] = Slot();
    _undoTop = -1;
}

/// The place in the ring that comes behind a top.
std::size_t CommandStack::placeAfter(std::int32_t top) const noexcept
{
    const auto next = static_cast<std::size_t>(top + 1);
    return next < _undo.size() ? next : 0;
}

/// Visits at most `limit` commands of the ring, newest first.
template <class Visit>
void CommandStack::visitUndo(std::size_t limit, Visit visit) const
{
    if (_undoTop < 0)
        return;
    auto place = static_cast<std::size_t>(_undoTop);
    for (limit = std::min(limit, _undo.size()); limit > 0 && _undo[place].command; --limit) {
        visit(*_undo[place].command);
        place = place > 0 ? place - 1 : _undo.size() - 1;
    }
}

template <class Visit>
void CommandStack::visitRedo(Visit visit) const
{
    for (std::int32_t i = _redoTop; i >= 0; --i)
        visit(*_redo[static_cast<std::size_t>(i)]);
}

} // namespace zarn
