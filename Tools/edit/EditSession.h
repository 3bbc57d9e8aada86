// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Values.h"

#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScore.h>

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn::tool {

struct OpenedDocument;
enum class EventDetail : std::uint8_t;
class EventPrinter;
class Terminal;

/// A score that is being edited by typed commands: the score itself, what it was when it was
/// opened, what is selected in it, and where it is to be saved.
class EditSession {
public:
    /// Output goes to `out`; both streams and terminal outlive the session. `output` is the file
    /// to save to, empty for the one that was opened.
    EditSession(const OpenedDocument &document, const std::string &output, const Terminal &terminal,
                std::ostream &out);
    ~EditSession();

    Score &score() noexcept { return _score; }
    const ScoreModel &model() const noexcept { return *_score.scoreModel(); }
    const OpenedDocument &document() const noexcept { return _document; }
    const Terminal &terminal() const noexcept { return _terminal; }
    std::ostream &out() noexcept { return _out; }

    /// Where lines work that do not say where: as the cursor stands, or as it was chosen.
    Where where() const;

    /// Chooses where, and takes the cursor there, if it is anywhere.
    void setWhere(const Where &where);

    /// What is selected, if anything; it may have been edited away since.
    const std::optional<ScoreModelRange> &selection() const noexcept { return _selection; }
    void select(const std::optional<ScoreModelRange> &selection) { _selection = selection; }

    /// What was copied last; empty at first.
    const Clip &clipboard() const noexcept { return _clipboard; }
    void setClipboard(const Clip &clip) { _clipboard = clip; }

    // Groups: the commands in one run when they are typed, and are one step when it is committed.

    std::size_t openGroups() const noexcept { return _groups.size(); }

    /// Opens a group inside those that are open; the name is that of its step, and may be empty.
    void beginGroup(const QString &name);

    /// End the innermost group: keep what it did, or undo it. Raise `Failure` when none is open.
    void commitGroup();
    void abandonGroup();

    // Events.

    void printEvents(EventDetail detail);

    /// Whether each line is printed before it is done.
    bool echoes() const noexcept { return _echoes; }
    void setEchoes(bool echoes) noexcept { _echoes = echoes; }

    // Comparing and saving.

    /// Whether the score is, byte for byte as a native document, what it was when it was opened;
    /// says so in words. A difference is remembered.
    void compare();
    bool hasComparedDifferent() const noexcept { return _hasComparedDifferent; }

    /// Whether a page was written that cannot be read again.
    bool hasExported() const noexcept { return _hasExported; }

    /// Saves to a path, or to where the score belongs when it is empty. Raises `Failure`.
    void save(const std::string &path);

    /// Where `save("")` would write; empty unless that is a native document.
    std::string defaultPath() const;

    /// Whether the score was edited since it was saved, and the edits were not undone.
    bool hasUnsavedChanges() const noexcept { return !_score.commandStack().isClean(); }

    bool isOver() const noexcept { return _isOver; }
    void quit() noexcept { _isOver = true; }
    void stay() noexcept { _isOver = false; }

private:
    void requireGroup() const;

    const OpenedDocument &_document;
    std::string _output;
    const Terminal &_terminal;
    std::ostream &_out;
    Score _score;
    std::string _opened; ///< native text of the score as it was opened
    std::vector<std::unique_ptr<Transaction>> _groups; ///< innermost last
    std::unique_ptr<EventPrinter> _events;
    Where _where; ///< while the cursor is nowhere
    std::optional<ScoreModelRange> _selection;
    Clip _clipboard;
    bool _hasExported = false;
    bool _hasComparedDifferent = false;
    bool _isOver = false;
    bool _echoes = false;
};

} // namespace zarn::tool
