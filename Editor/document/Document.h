// SPDX-License-Identifier: MIT
#pragma once

#include "document/Selection.h"
#include "entry/AwaitedLink.h"
#include "entry/EntryState.h"
#include "entry/FretDigits.h"

#include <ZarnCore/score/ZarnScore.h>

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace zarn::editor {

class Recovery;

/// A score that is open: what is in it, what of it is selected, where it is saved. All changes go
/// through `edit`, so that each is one step with a name that a user reads. Belongs to the thread of
/// the user interface.
class Document : public QObject {
    Q_OBJECT
public:
    Document();
    explicit Document(std::shared_ptr<ScoreModel> model);
    ~Document() override;

    /// The music. Change it by `edit`.
    const Score &score() const noexcept { return _score; }
    /// For layouts and players, which listen to it; they change nothing.
    Score &listenedScore() noexcept { return _score; }
    const ScoreModel &model() const noexcept { return *_score.scoreModel(); }

    /// Empty for one that was never saved.
    const QString &path() const noexcept { return _path; }
    void setPath(const QString &path);
    /// The file of another format that it was read from; empty when there is none.
    const QString &importedFrom() const noexcept { return _importedFrom; }
    void setImportedFrom(const QString &path);
    /// The name of its file, else its title, else what a new one is called.
    QString displayName() const;

    bool isModified() const noexcept;
    /// It is of no file, and nothing was ever done to it.
    bool isUntouched() const noexcept;
    /// What is there now is what the file holds.
    void setSaved();
    /// Its copy for the case that the program ends unasked.
    Recovery &recovery() noexcept { return *_recovery; }
    /// It is worth saving although no edit was made: it was recovered, or imported.
    void setUnsaved();

    /// Makes one step of all that `change` does, under a title for undo and redo. When it answers
    /// false or raises, nothing has changed; what was raised goes to `refused`. An edit inside of
    /// another one joins it.
    bool edit(const QString &title, const std::function<bool(Score &)> &change);

    bool canUndo() const noexcept { return _score.commandStack().undoAvailable(); }
    bool canRedo() const noexcept { return _score.commandStack().redoAvailable(); }
    /// Empty when there is nothing to undo or redo.
    const QString &undoTitle() const noexcept { return _undoTitle; }
    const QString &redoTitle() const noexcept { return _redoTitle; }
    void undo();
    /// The cursor goes to where the step was made.
    void redo();

    // The cursor and the selection, of all windows on the document.

    const ScoreModelIndex &cursor() const noexcept { return _score.scoreCursor().index(); }
    const Selection &selection() const noexcept { return _selection; }

    /// Moves the cursor by `move`, which answers whether it did; with `extends` the selection goes
    /// from where it was, else there is none afterwards.
    bool moveCursor(const std::function<bool(ScoreCursor &)> &move, bool extends = false);
    bool moveCursorTo(const ScoreModelIndex &place, bool extends = false);
    /// Selects from a place to the cursor, which goes to another one.
    void select(const ScoreModelIndex &from, const ScoreModelIndex &to, SelectedPart part);
    void clearSelection();

    /// What is entered next.
    const EntryState &entry() const noexcept { return _entry; }
    void setEntry(const EntryState &entry);
    /// The note that a letter wrote last, while the cursor is still behind it; else no place.
    const ScoreModelIndex &lastTyped() const noexcept { return _lastTyped; }
    void setLastTyped(const ScoreModelIndex &note) { _lastTyped = note; }
    FretDigits &fretDigits() noexcept { return _fretDigits; }
    /// What leads on to a note that is not written yet.
    const std::optional<AwaitedLink> &awaitedLink() const noexcept { return _awaitedLink; }
    void setAwaitedLink(std::optional<AwaitedLink> link) { _awaitedLink = std::move(link); }

    /// How many steps were made, undone and redone since it was opened.
    unsigned stepCount() const noexcept { return _stepCount; }

Q_SIGNALS:
    /// A step was made, undone or redone; the score is whole.
    void changed();
    /// The cursor, the selection or what is entered next is another one.
    void placeChanged();
    void modifiedChanged();
    void pathChanged();
    /// Something that was asked for is not possible, and why.
    void refused(const QString &message);

private:
    void announce();
    void run(const std::function<void()> &step);

    Score _score;
    Selection _selection;
    EntryState _entry;
    FretDigits _fretDigits;
    std::optional<AwaitedLink> _awaitedLink;
    std::vector<ScoreModelIndex>
        _redoPlaces; ///< of the steps that can be redone, the next one last
    ScoreModelIndex _lastTyped;
    unsigned _stepCount = 0;
    QString _path;
    QString _importedFrom;
    QString _undoTitle;
    QString _redoTitle;
    bool _isUnsaved = false;
    bool _wasModified = false;
    unsigned _editDepth = 0;
    utils::ScopedConnection _executed;
    bool _isChanged = false;
    std::unique_ptr<Recovery> _recovery;
};

} // namespace zarn::editor
