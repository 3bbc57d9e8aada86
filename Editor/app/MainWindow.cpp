// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include "actions/ActionSet.h"
#include "app/Editor.h"
#include "app/PlaceText.h"
#include "app/Playing.h"
#include "app/ScoreView.h"
#include "dialogs/PageSetupDialog.h"
#include "dialogs/ShortcutsDialog.h"
#include "document/Document.h"
#include "document/Drawings.h"
#include "document/Recovery.h"
#include "panels/PanelTable.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>
#include <ZarnViews/export/ZarnScorePrinter.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QHash>
#include <QLabel>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QSettings>
#include <QStatusBar>

namespace zarn::editor {
namespace {

constexpr int messageMilliseconds = 6000;

QString geometryKey()
{
    return QStringLiteral("window/geometry");
}

QString panelsKey()
{
    return QStringLiteral("window/panels");
}

/// Prints on sheets as those of a layout, unless the user wants other ones.
void setPaper(QPrinter &printer, const layout::Layout &layout, const QString &name)
{
    printer.setDocName(name);
    if (layout.pages().empty())
        return;
    constexpr double micrometres = 1000; // in a millimetre
    const layout::LayoutPage &page = layout.pages().front();
    const QSizeF size(page.width / micrometres, page.height / micrometres);
    const bool isWide = size.width() > size.height();
    printer.setPageSize(QPageSize(isWide ? size.transposed() : size, QPageSize::Millimeter,
                                  QString(), QPageSize::FuzzyMatch));
    printer.setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
}

} // namespace

MainWindow::MainWindow(Editor &editor, std::shared_ptr<Document> document, LaidOut laidOut)
    : _editor(editor), _document(std::move(document)),
      _view(new ScoreView(*_document, std::move(laidOut))), _place(new QLabel),
      _playing(std::make_unique<Playing>(*_document))
{
    resize(1100, 800);
    setCentralWidget(_view);
    statusBar()->addPermanentWidget(_place);
    addPanels();
    const QSettings settings;
    restoreGeometry(settings.value(geometryKey()).toByteArray());
    restoreState(settings.value(panelsKey()).toByteArray());
    _actions = std::make_unique<ActionSet>(ActionContext{*this, *_document, *_view}, *menuBar());
    connect(_document.get(), &Document::pathChanged, this, &MainWindow::showTitle);
    connect(_document.get(), &Document::modifiedChanged, this, &MainWindow::showTitle);
    connect(_document.get(), &Document::refused, this, &MainWindow::say);
    connect(_document.get(), &Document::placeChanged, this, &MainWindow::showPlace);
    connect(_document.get(), &Document::changed, _actions.get(), &ActionSet::markStale);
    connect(_document.get(), &Document::placeChanged, _actions.get(), &ActionSet::markStale);
    connect(_playing.get(), &Playing::moved, _view, &ScoreView::showPlayback);
    connect(_playing.get(), &Playing::failed, this, &MainWindow::say);
    connect(_playing.get(), &Playing::stateChanged, _actions.get(), &ActionSet::refresh);
    showTitle();
    showPlace();
    _view->setFocus();
}

MainWindow::~MainWindow()
{
    // The menus name the view's actions, and all that is in the window listens to the document.
    _actions.reset();
    qDeleteAll(findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly));
    delete takeCentralWidget();
}

void MainWindow::addPanels()
{
    // Those of one side share it, each on a tab.
    QHash<int, QDockWidget *> firsts;
    for (const PanelRow &row : panelTable()) {
        auto *const dock = new QDockWidget(row.title, this);
        dock->setObjectName(row.id);
        dock->setWidget(row.make({*this, *_document, *_view}).release());
        QDockWidget *&first = firsts[row.area];
        if (first == nullptr)
            addDockWidget(row.area, dock);
        else
            tabifyDockWidget(first, dock);
        first = first == nullptr ? dock : first;
        dock->setVisible(row.isShownAtFirst);
    }
    // Most scores have few tracks, and the pages want the room.
    constexpr int usualHeight = 150; // pixels
    resizeDocks({findChild<QDockWidget *>(panelTable().front().id)}, {usualHeight}, Qt::Vertical);
}

void MainWindow::showPanel(const QString &id)
{
    auto *const dock = findChild<QDockWidget *>(id, Qt::FindDirectChildrenOnly);
    if (dock == nullptr)
        return;
    dock->show();
    dock->raise();
    dock->widget()->setFocus(Qt::TabFocusReason);
}

void MainWindow::showTitle()
{
    setWindowTitle(QStringLiteral("%1[*]").arg(_document->displayName()));
    setWindowFilePath(_document->path());
    setWindowModified(_document->isModified());
}

void MainWindow::showPlace()
{
    _place->setText(placeText(*_document));
}

bool MainWindow::save()
{
    return _document->path().isEmpty() ? saveAs() : saveTo(_document->path());
}

bool MainWindow::saveAs()
{
    const QFileInfo source(_document->path().isEmpty() ? _document->importedFrom()
                                                       : _document->path());
    const QString name = source.filePath().isEmpty()
        ? _document->displayName()
        : source.path() + QLatin1Char('/') + source.completeBaseName();
    const QString path =
        _editor.questions().fileToSave(this, name + QLatin1Char('.') + nativeSuffix(),
                                       {tr("Zarn documents (*.%1)").arg(nativeSuffix())});
    return !path.isEmpty() && saveTo(path);
}

bool MainWindow::saveTo(const QString &path)
{
    const SavedFile saved = saveFile(_document->model(), path);
    if (!saved.error.isEmpty()) {
        _editor.questions().tell(this, tr("\"%1\" cannot be saved.").arg(path), {saved.error});
        return false;
    }
    _document->setPath(QFileInfo(path).absoluteFilePath());
    _document->setSaved();
    _editor.addRecentFile(_document->path());
    say(tr("Saved."));
    return true;
}

void MainWindow::exportScore()
{
    const QFileInfo source(_document->path().isEmpty() ? _document->importedFrom()
                                                       : _document->path());
    const QString path = _editor.questions().fileToSave(
        this, source.path() + QLatin1Char('/') + source.completeBaseName(),
        exportFilters() + drawingFilters());
    if (path.isEmpty())
        return;
    SavedFile saved;
    if (isDrawing(path))
        saved.error = saveDrawing(*sheets(), path);
    else
        saved = saveFile(_document->model(), path);
    if (!saved.error.isEmpty()) {
        _editor.questions().tell(this, tr("\"%1\" cannot be written.").arg(path), {saved.error});
        return;
    }
    const QStringList lines = linesOf(saved.report, "track");
    if (!lines.isEmpty())
        _editor.questions().tell(this, tr("The format has no word for all of it."), lines);
    say(tr("Exported."));
}

/// What is shown, on pages, whatever way the view has them.
std::shared_ptr<const layout::Layout> MainWindow::sheets() const
{
    layout::LayoutOptions options = _view->layouts().options();
    options.view = ViewLayout::Pages;
    return layout::layOut(_document->model(), options);
}

void MainWindow::print()
{
    const auto shown = sheets();
    QPrinter printer(QPrinter::HighResolution);
    setPaper(printer, *shown, _document->displayName());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted && !views::printLayout(*shown, printer))
        say(tr("Nothing was printed."));
}

void MainWindow::showPreview()
{
    const auto shown = sheets();
    QPrinter printer(QPrinter::HighResolution);
    setPaper(printer, *shown, _document->displayName());
    QPrintPreviewDialog dialog(&printer, this);
    dialog.resize(size());
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [&shown](QPrinter *target) { views::printLayout(*shown, *target); });
    dialog.exec();
}

void MainWindow::setUpPage()
{
    PageSetupDialog dialog(_document->model().pageSetup(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const PageSetup setup = dialog.setup();
    if (!_document->edit(tr("Page setup"), [&](Score &score) { return score.setPageSetup(setup); }))
        say(tr("Such margins leave no room for music."));
}

void MainWindow::chooseShortcuts()
{
    ShortcutsDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    for (MainWindow *const window : _editor.windows())
        window->actions().applyShortcuts();
}

void MainWindow::tellOfImport(const QStringList &lines)
{
    _editor.questions().tell(
        this, tr("Something of \"%1\" was changed or left out.").arg(_document->displayName()),
        lines);
}

void MainWindow::say(const QString &message)
{
    statusBar()->showMessage(message, messageMilliseconds);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (_document->isModified() && _editor.isLastWindowOf(*this))
        askBeforeClosing(event);
    if (!event->isAccepted())
        return;
    QSettings settings;
    settings.setValue(geometryKey(), saveGeometry());
    settings.setValue(panelsKey(), saveState());
}

void MainWindow::askBeforeClosing(QCloseEvent *event)
{
    switch (_editor.questions().askToSave(this, _document->displayName())) {
    case Questions::Answer::Save:
        event->setAccepted(save());
        break;
    case Questions::Answer::Discard:
        _document->recovery().forget();
        break;
    case Questions::Answer::Cancel:
        event->ignore();
        break;
    }
}

} // namespace zarn::editor
