// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnUndoHistory.h>

#include <algorithm>
#include <utility>

namespace zarn {

UndoHistory::UndoHistory(std::size_t size) : _redo(size), _undo(size) { }

UndoHistory::~UndoHistory()
{
    reset();
}

std::uint32_t UndoHistory::undoCount() const noexcept
{
    return static_cast<std::uint32_t>(std::count_if(
        _undo.begin(), _undo.end(), [](const Slot &slot) { return slot.isOccupied; }));
}

QStringList UndoHistory::undoTexts(Text text, std::size_t most) const
{
    QStringList texts;
    if (_undoTop < 0)
        return texts;
    auto place = static_cast<std::size_t>(_undoTop);
    for (most = std::min(most, _undo.size()); most > 0 && _undo[place].command; --most) {
        texts.append((*_undo[place].command.*text)());
        place = place > 0 ? place - 1 : _undo.size() - 1;
    }
    return texts;
}

QStringList UndoHistory::redoTexts(Text text) const
{
    QStringList texts;
    for (std::int32_t i = _redoTop; i >= 0; --i)
        texts.append((*_redo[static_cast<std::size_t>(i)].*text)());
    return texts;
}

UndoHistory::Trial UndoHistory::store(std::unique_ptr<Command> &command, Run run) noexcept
{
    Trial trial{run, _undoTop, _redoTop, false};
    if (run == Run::First)
        _redoTop = -1;
    if (_undo.empty())
        return trial;
    const std::size_t place = placeBehindTop();
    Slot &slot = _undo[place];
    slot.command.swap(command);
    trial.wasOccupied = std::exchange(slot.isOccupied, true);
    _undoTop = static_cast<std::int32_t>(place);
    return trial;
}

void UndoHistory::keep(const Trial &trial, const ScoreCursor *cursor) noexcept
{
    if (!_undo.empty()) {
        std::optional<ScoreCursor> &kept = _undo[static_cast<std::size_t>(_undoTop)].cursor;
        kept.reset();
        if (cursor != nullptr)
            kept.emplace(*cursor);
    }
    if (trial.run == Run::First) {
        _redoTop = trial.redoTop;
        dropRedo();
    }
    if (_stepsSinceClean.has_value())
        ++*_stepsSinceClean;
}

void UndoHistory::takeOut(const Trial &trial, std::unique_ptr<Command> &command) noexcept
{
    if (!_undo.empty()) {
        Slot &slot = _undo[static_cast<std::size_t>(_undoTop)];
        slot.command.swap(command);
        slot.isOccupied = trial.wasOccupied;
    }
    _undoTop = trial.undoTop;
    _redoTop = trial.redoTop;
}

std::unique_ptr<Command> UndoHistory::takeUndo() noexcept
{
    Slot &slot = _undo[static_cast<std::size_t>(_undoTop)];
    slot.isOccupied = false;
    _undoTop = _undoTop > 0 ? _undoTop - 1 : static_cast<std::int32_t>(_undo.size()) - 1;
    return std::move(slot.command);
}

const ScoreCursor *UndoHistory::keepUndone(std::unique_ptr<Command> command) noexcept
{
    _redo[static_cast<std::size_t>(++_redoTop)] = std::move(command);
    if (_stepsSinceClean.has_value())
        --*_stepsSinceClean;
    const std::optional<ScoreCursor> &cursor = _undo[placeBehindTop()].cursor;
    return cursor.has_value() ? &*cursor : nullptr;
}

void UndoHistory::putBackUndo(std::unique_ptr<Command> command) noexcept
{
    const std::size_t place = placeBehindTop();
    _undo[place].command = std::move(command);
    _undo[place].isOccupied = true;
    _undoTop = static_cast<std::int32_t>(place);
}

std::unique_ptr<Command> UndoHistory::takeRedo() noexcept
{
    return std::move(_redo[static_cast<std::size_t>(_redoTop--)]);
}

void UndoHistory::putBackRedo(std::unique_ptr<Command> command) noexcept
{
    _redo[static_cast<std::size_t>(++_redoTop)] = std::move(command);
}

void UndoHistory::resize(std::uint32_t size)
{
    std::vector<std::unique_ptr<Command>> redo(size);
    std::vector<Slot> undo(size);
    for (std::size_t i = 0; i < std::min(undo.size(), _undo.size()); ++i)
        undo[i].isOccupied = _undo[i].isOccupied;
    _redoTop = -1;
    _undoTop = -1;
    _redo.swap(redo);
    _undo.swap(undo);
    if (!isClean())
        _stepsSinceClean.reset();
}

void UndoHistory::reset() noexcept
{
    for (Slot &slot : _undo)
        slot = Slot();
    for (auto &command : _redo)
        command.reset();
    _undoTop = -1;
    _redoTop = -1;
    _stepsSinceClean = 0;
}

void UndoHistory::dropCursors() noexcept
{
    for (Slot &slot : _undo)
        slot.cursor.reset();
}

void UndoHistory::dropRedo() noexcept
{
    if (_redoTop >= 0 && _stepsSinceClean < 0)
        _stepsSinceClean.reset();
    for (; _redoTop >= 0; --_redoTop)
        _redo[static_cast<std::size_t>(_redoTop)].reset();
}

void UndoHistory::dropUndo() noexcept
{
    if (!undoAvailable())
        return;
    if (_stepsSinceClean > 0)
        _stepsSinceClean.reset();
    for (std::int32_t i = 0; i <= _undoTop; ++i)
        _undo[static_cast<std::size_t>(i)] = Slot();
    _undoTop = -1;
}

} // namespace zarn
