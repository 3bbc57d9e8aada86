// SPDX-License-Identifier: MIT
#include "app/Editor.h"

#include "app/MainWindow.h"
#include "app/ScoreView.h"
#include "document/Document.h"
#include "document/NewScore.h"
#include "document/Recovery.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QSettings>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

namespace zarn::editor {
namespace {

constexpr int mostRecentFiles = 10;

QString recentKey()
{
    return QStringLiteral("recentFiles");
}

} // namespace

Editor::Editor(std::unique_ptr<Questions> questions) : _questions(std::move(questions)) { }

Editor::~Editor()
{
    for (const QPointer<MainWindow> &window : _windows)
        delete window.data();
    QThreadPool::globalInstance()->waitForDone();
}

void Editor::open(const QString &path, MainWindow *asker)
{
    const QString whole = QFileInfo(path).absoluteFilePath();
    for (MainWindow *const window : windows()) {
        if (window->document().path() != whole)
            continue;
        window->raise();
        window->activateWindow();
        return;
    }
    ++_openingCount;
    if (asker != nullptr)
        asker->say(tr("Opening \"%1\"...").arg(QFileInfo(path).fileName()));
    auto *const watcher = new QFutureWatcher<LoadedFile>(this);
    const QPointer<MainWindow> over(asker);
    connect(watcher, &QFutureWatcher<LoadedFile>::finished, this, [this, watcher, over] {
        watcher->deleteLater();
        --_openingCount;
        take(watcher->result(), over);
        if (_openingCount == 0)
            Q_EMIT idle();
    });
    watcher->setFuture(QtConcurrent::run(loadFile, whole));
}

void Editor::take(const LoadedFile &file, const QPointer<MainWindow> &asker)
{
    if (file.model == nullptr) {
        if (!QFileInfo::exists(file.path))
            removeRecentFile(file.path);
        _questions->tell(asker, tr("\"%1\" cannot be opened.").arg(file.path), {file.error});
        return;
    }
    MainWindow *const window = showInPlaceOf(asker, file);
    const QStringList lines = linesOf(file.report, "part");
    if (!lines.isEmpty())
        window->tellOfImport(lines);
}

MainWindow *Editor::show(LoadedFile file)
{
    auto document = std::make_shared<Document>(std::move(file.model));
    if (!file.path.isEmpty())
        addRecentFile(file.path);
    // A file of another format stays as it is: what is saved becomes a document of its own.
    if (file.isNative)
        document->setPath(file.path);
    else
        document->setImportedFrom(file.path);
    return add(std::move(document), std::move(file.layout));
}

MainWindow *Editor::showInPlaceOf(MainWindow *old, LoadedFile file)
{
    MainWindow *const window = show(std::move(file));
    if (old != nullptr && old->document().isUntouched() && isLastWindowOf(*old)) {
        window->setGeometry(old->geometry());
        old->close();
    }
    return window;
}

MainWindow *Editor::showAgain(const std::shared_ptr<Document> &document)
{
    // What another window has laid out already need not be laid out again.
    for (MainWindow *const window : windows()) {
        const LayoutKeeper &layouts = window->view().layouts();
        const layout::LayoutOptions usual = usualOptions(document->model());
        if (window->sharedDocument() == document && !layouts.isBusy()
            && layouts.options().view == usual.view && layouts.options().tracks.empty())
            return add(document, LaidOut(layouts.layout()));
    }
    return add(document, {});
}

MainWindow *Editor::showNew()
{
    return show(loadedModel(newScore()));
}

MainWindow *Editor::add(std::shared_ptr<Document> document, LaidOut laidOut)
{
    auto *const window = new MainWindow(*this, std::move(document), std::move(laidOut));
    window->setAttribute(Qt::WA_DeleteOnClose);
    // Where another one is, this one would hide it.
    constexpr QPoint step(30, 30);
    const auto open = windows();
    if (!open.empty() && !window->isMaximized())
        window->move(open.back()->pos() + step);
    _windows.emplace_back(window);
    window->show();
    Q_EMIT opened(window);
    return window;
}

bool Editor::offerLostDocuments()
{
    const std::vector<LostDocument> lost = lostDocuments();
    QStringList names;
    for (const LostDocument &each : lost)
        names << (each.originalPath.isEmpty() ? tr("a new score")
                                              : QFileInfo(each.originalPath).fileName());
    if (lost.empty()
        || !_questions->askYesOrNo(
            nullptr,
            tr("The program ended before all was saved (%1). Open what it kept?")
                .arg(names.join(QStringLiteral(", ")))))
        return false;
    bool isAny = false;
    for (const LostDocument &each : lost) {
        const LoadedFile file = loadFile(each.copyPath);
        if (file.model == nullptr) {
            _questions->tell(nullptr, tr("\"%1\" cannot be opened.").arg(file.path), {file.error});
            continue;
        }
        auto document = std::make_shared<Document>(file.model);
        document->setPath(each.originalPath);
        document->setUnsaved();
        document->recovery().keep(); // the copy of this run, before the other one goes
        removeLost(each);
        add(std::move(document), file.layout);
        isAny = true;
    }
    return isAny;
}

std::vector<MainWindow *> Editor::windows() const
{
    std::vector<MainWindow *> open;
    for (const QPointer<MainWindow> &window : _windows)
        if (window != nullptr)
            open.push_back(window);
    return open;
}

bool Editor::isLastWindowOf(const MainWindow &window) const
{
    int count = 0;
    for (const MainWindow *const other : windows())
        count += &other->document() == &window.document() && other->isVisible() ? 1 : 0;
    return count <= 1;
}

QStringList Editor::recentFiles() const
{
    return QSettings().value(recentKey()).toStringList();
}

void Editor::removeRecentFile(const QString &path)
{
    QStringList files = recentFiles();
    files.removeAll(path);
    QSettings().setValue(recentKey(), files);
}

void Editor::addRecentFile(const QString &path)
{
    QStringList files = recentFiles();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > mostRecentFiles)
        files.removeLast();
    QSettings().setValue(recentKey(), files);
}

} // namespace zarn::editor
