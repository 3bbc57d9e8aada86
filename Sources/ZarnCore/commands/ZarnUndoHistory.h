// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnCommand.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QStringList>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zarn {

/// What a command stack keeps: the commands that can be undone, in a ring, each with the place
/// where the cursor was before it; those that can be redone, on a pile; and how many steps away the
/// saved state is. Runs nothing and tells nobody; `CommandStack` says what its numbers and lists
/// mean.
class ZARNCORE_EXPORT UndoHistory {
public:
    enum class Run { First, Again };

    /// A command's step while it runs: how the stores were before.
    struct Trial {
        Run run = Run::First;
        std::int32_t undoTop = -1;
        std::int32_t redoTop = -1;
        bool wasOccupied = false;
    };

    explicit UndoHistory(std::size_t size);
    ~UndoHistory();
    UndoHistory(const UndoHistory &) = delete;
    UndoHistory &operator=(const UndoHistory &) = delete;

    std::size_t size() const noexcept { return _redo.size(); }
    bool undoAvailable() const noexcept
    {
        return _undoTop >= 0 && _undo[static_cast<std::size_t>(_undoTop)].command != nullptr;
    }
    bool redoAvailable() const noexcept { return _redoTop >= 0; }
    bool hasRoomForRedo() const noexcept { return redoCount() < _redo.size(); }
    std::uint32_t undoCount() const noexcept;
    std::uint32_t redoCount() const noexcept { return static_cast<std::uint32_t>(_redoTop + 1); }

    /// Names or arguments, newest first; of those that can be undone `most` at most.
    using Text = QString (Command::*)() const;
    QStringList undoTexts(Text text, std::size_t most) const;
    QStringList redoTexts(Text text) const;

    // A step forth: the command is stored, runs, and is kept, or taken out when it failed.

    /// Stores a command behind the newest one, if there is room; `command` then holds what had its
    /// place. A first run hides what could be redone.
    Trial store(std::unique_ptr<Command> &command, Run run) noexcept;
    void keep(const Trial &trial, const ScoreCursor *cursor) noexcept;
    void takeOut(const Trial &trial, std::unique_ptr<Command> &command) noexcept;

    // A step back: the newest command is taken out, undone, and kept for redo, or put back. The
    // answer is where the cursor was before the command ran, null when that is not known.

    std::unique_ptr<Command> takeUndo() noexcept;
    const ScoreCursor *keepUndone(std::unique_ptr<Command> command) noexcept;
    void putBackUndo(std::unique_ptr<Command> command) noexcept;

    /// Takes what was undone last, for a step forth, or puts it back.
    std::unique_ptr<Command> takeRedo() noexcept;
    void putBackRedo(std::unique_ptr<Command> command) noexcept;

    // Forgetting, as the stack says.

    void resize(std::uint32_t size);
    void reset() noexcept;
    void dropCursors() noexcept;
    void dropRedo() noexcept;
    void dropUndo() noexcept;

    void setClean() noexcept { _stepsSinceClean = 0; }
    bool isClean() const noexcept { return _stepsSinceClean == 0; }

private:
    /// One place of the ring.
    struct Slot {
        std::unique_ptr<Command> command;
        std::optional<ScoreCursor> cursor;
        bool isOccupied = false;
    };

    std::size_t placeBehindTop() const noexcept
    {
        const auto next = static_cast<std::size_t>(_undoTop + 1);
        return next < _undo.size() ? next : 0;
    }

    std::int32_t _redoTop = -1;
    std::int32_t _undoTop = -1;
    std::vector<std::unique_ptr<Command>> _redo;
    std::vector<Slot> _undo;

    /// Steps from the saved state to this one, negative back to it; none when no steps lead there.
    std::optional<std::int64_t> _stepsSinceClean = 0;
};

} // namespace zarn
