// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>

#include <QMainWindow>

#include <memory>

class QLabel;

namespace zarn::editor {

class ActionSet;
class Document;
class Editor;
class Playing;
class ScoreView;
struct LaidOut;

/// A window on a document: its pages, menus, panels and a line that says where the cursor is.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(Editor &editor, std::shared_ptr<Document> document, LaidOut laidOut);
    ~MainWindow() override;

    Editor &editor() const noexcept { return _editor; }
    Document &document() const noexcept { return *_document; }
    const std::shared_ptr<Document> &sharedDocument() const noexcept { return _document; }
    ScoreView &view() const noexcept { return *_view; }
    Playing &playing() const noexcept { return *_playing; }
    ActionSet &actions() const noexcept { return *_actions; }

    /// Each answers whether the document is saved then. What goes wrong is told.
    bool save();
    bool saveAs();
    void exportScore();

    void print();
    void showPreview();
    void setUpPage();
    void chooseShortcuts();

    /// Shows one of the panels, by its name in their table, and goes there.
    void showPanel(const QString &id);

    /// What an import could not hold.
    void tellOfImport(const QStringList &lines);
    /// In the status line, for some seconds.
    void say(const QString &message);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    bool saveTo(const QString &path);
    void addPanels();
    void askBeforeClosing(QCloseEvent *event);
    void showTitle();
    std::shared_ptr<const layout::Layout> sheets() const;
    void showPlace();

    Editor &_editor;
    std::shared_ptr<Document> _document;
    ScoreView *_view;
    QLabel *_place;
    std::unique_ptr<Playing> _playing;
    std::unique_ptr<ActionSet> _actions;
};

} // namespace zarn::editor
