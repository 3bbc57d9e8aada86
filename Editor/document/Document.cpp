// SPDX-License-Identifier: MIT
#include "document/Document.h"

#include "document/Recovery.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/events/ZarnCommandEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFileInfo>

#include <exception>

namespace zarn::editor {
namespace {

/// "SetBeatRhythm" as "Set beat rhythm": steps that no edit has named.
QString readable(const QString &name)
{
    if (name.contains(QLatin1Char(' ')))
        return name;
    QString text;
    for (const QChar sign : name) {
        if (sign.isUpper() && !text.isEmpty())
            text += QLatin1Char(' ') + sign.toLower();
        else
            text += sign;
    }
    return text;
}

/// That can be undone.
constexpr std::uint32_t mostSteps = 1000;

/// Counts how deep edits are inside of each other.
class Depth {
public:
    explicit Depth(unsigned &depth) noexcept : _depth(depth) { ++_depth; }
    ~Depth() { --_depth; }
    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;

private:
    unsigned &_depth;
};

} // namespace

Document::Document() : Document(nullptr) { }

Document::Document(std::shared_ptr<ScoreModel> model)
{
    if (model != nullptr)
        _score.setScoreModel(std::move(model));
    _score.commandStack().setMaximumUndo(mostSteps);
    _score.scoreCursor().next(CursorStep::Beat); // from nowhere to the first beat
    _executed =
        _score.connectScoped<evt::CommandExecuted>(this, [this](const evt::CommandExecuted &) {
            _isChanged = true;
            ++_stepCount;
        });
    _recovery = std::make_unique<Recovery>(*this);
}

Document::~Document() = default;

void Document::setPath(const QString &path)
{
    if (path == _path)
        return;
    _path = path;
    Q_EMIT pathChanged();
}

void Document::setImportedFrom(const QString &path)
{
    _importedFrom = path;
    Q_EMIT pathChanged();
}

QString Document::displayName() const
{
    for (const QString &path : {_path, _importedFrom})
        if (!path.isEmpty())
            return QFileInfo(path).fileName();
    const QString title = QString::fromStdString(model().property(ScoreProperty::Title));
    return title.isEmpty() ? tr("Untitled") : title;
}

bool Document::isModified() const noexcept
{
    return _isUnsaved || !_score.commandStack().isClean();
}

bool Document::isUntouched() const noexcept
{
    return _path.isEmpty() && _importedFrom.isEmpty() && !_isUnsaved && _stepCount == 0;
}

void Document::setSaved()
{
    _isUnsaved = false;
    _score.commandStack().setClean();
    announce();
}

void Document::setUnsaved()
{
    _isUnsaved = true;
    announce();
}

bool Document::edit(const QString &title, const std::function<bool(Score &)> &change)
{
    if (_editDepth > 0)
        return change(_score);
    bool isDone = false;
    run([&] {
        Transaction step(&_score, title);
        if (!change(_score))
            return;
        step.commit();
        isDone = true;
        _redoPlaces.clear();
    });
    announce();
    return isDone;
}

void Document::undo()
{
    const bool isThere = canUndo();
    run([this] { _score.commandStack().undo(); });
    if (isThere)
        _redoPlaces.push_back(cursor());
    announce();
}

void Document::redo()
{
    const bool isThere = canRedo();
    run([this] { _score.commandStack().redo(); });
    if (isThere && !_redoPlaces.empty()) {
        _score.scoreCursor().setIndex(_redoPlaces.back());
        _score.scoreCursor().settle();
        _redoPlaces.pop_back();
    }
    announce();
}

void Document::run(const std::function<void()> &step)
{
    const Depth depth(_editDepth);
    try {
        step();
    } catch (const CoreException &problem) {
        Q_EMIT refused(QString::fromStdString(problem.message()));
    } catch (const std::exception &problem) {
        Q_EMIT refused(QString::fromLocal8Bit(problem.what()));
    }
}

bool Document::moveCursor(const std::function<bool(ScoreCursor &)> &move, bool extends)
{
    const ScoreModelIndex before = cursor();
    _lastTyped = {};
    const auto target = _score.scoreCursor().cloneScoreCursor();
    ScoreCursor &own = _score.scoreCursor();
    const bool hasMoved = move(own);
    if (!hasMoved)
        own.moveToCursor(*target);
    if (!extends)
        _selection.clear();
    else if (_selection.isEmpty() && hasMoved)
        _selection.start(before);
    _selection.settle(_score);
    // From a staff without strings one comes to the highest string of another.
    const auto staff = cursor().staff();
    if (staff != nullptr && staff->isFretted()
        && cursor().noteString() >= staff->tuning().stringCount())
        own.toFirst(CursorStep::String);
    // Another track is written from its first voice on, unless it has the other one here.
    const bool isOtherTrack = cursor().trackIndex() != before.trackIndex();
    if (isOtherTrack && (cursor().findVoice() == nullptr || cursor().findVoice()->isEmpty()))
        own.to(CursorStep::Voice, 0);
    if (isOtherTrack)
        _entry.rhythm = EntryState().rhythm;
    // What is entered next is as long as the beat that one comes from.
    if (const auto beat = cursor().beat())
        _entry.rhythm = beat->rhythmValue();
    Q_EMIT placeChanged();
    return hasMoved;
}

bool Document::moveCursorTo(const ScoreModelIndex &place, bool extends)
{
    return moveCursor(
        [&place](ScoreCursor &cursor) {
            cursor.setIndex(place);
            cursor.settle();
            return cursor.isValid();
        },
        extends);
}

void Document::select(const ScoreModelIndex &from, const ScoreModelIndex &to, SelectedPart part)
{
    _lastTyped = {};
    _selection.start(from, part);
    _score.scoreCursor().setIndex(to);
    _score.scoreCursor().settle();
    _selection.settle(_score);
    Q_EMIT placeChanged();
}

void Document::clearSelection()
{
    _selection.clear();
    Q_EMIT placeChanged();
}

void Document::setEntry(const EntryState &entry)
{
    if (entry == _entry)
        return;
    _entry = entry;
    Q_EMIT placeChanged();
}

void Document::announce()
{
    if (_isChanged) {
        _isChanged = false;
        _undoTitle = readable(_score.commandStack().undoCommandList().value(0));
        _redoTitle = readable(_score.commandStack().redoCommandList().value(0));
        _selection.settle(_score);
        if (!_score.scoreCursor().isValid())
            _score.scoreCursor().next(CursorStep::Beat);
        Q_EMIT changed();
        Q_EMIT placeChanged();
    }
    if (isModified() == _wasModified)
        return;
    _wasModified = isModified();
    Q_EMIT modifiedChanged();
}

} // namespace zarn::editor
