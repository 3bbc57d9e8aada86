// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/Questions.h"
#include "document/DocumentFiles.h"

#include <ZarnCore/model/clip/ZarnClip.h>

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

namespace zarn::editor {

class Document;
class MainWindow;
struct LaidOut;

/// The program: its windows, the files that are on their way, what was copied.
class Editor : public QObject {
    Q_OBJECT
public:
    explicit Editor(std::unique_ptr<Questions> questions = std::make_unique<Questions>());
    /// Waits for files that are being read.
    ~Editor() override;

    Questions &questions() noexcept { return *_questions; }

    /// Reads a file on another thread and shows it in a window of its own when it is there; a
    /// window that shows it already comes to the front. What goes wrong is told over `asker`.
    void open(const QString &path, MainWindow *asker = nullptr);
    bool isOpening() const noexcept { return _openingCount > 0; }

    /// A window on what was read, which must have a model.
    MainWindow *show(LoadedFile file);
    /// The same in place of a window on a new score that nobody has touched, if `old` is one.
    MainWindow *showInPlaceOf(MainWindow *old, LoadedFile file);
    /// One more window on a document.
    MainWindow *showAgain(const std::shared_ptr<Document> &document);
    MainWindow *showNew();

    /// Opens what a run before left behind when it ended unasked, each as a document that is not
    /// saved, when the user wants it; answers whether there was any.
    bool offerLostDocuments();

    std::vector<MainWindow *> windows() const;
    bool isLastWindowOf(const MainWindow &window) const;

    /// What was copied or cut last, in whatever window.
    const Clip &clipboard() const noexcept { return _clipboard; }
    void setClipboard(Clip clip) { _clipboard = std::move(clip); }

    QStringList recentFiles() const;
    void addRecentFile(const QString &path);
    void removeRecentFile(const QString &path);

Q_SIGNALS:
    void opened(zarn::editor::MainWindow *window);
    /// No file is being read any more.
    void idle();

private:
    void take(const LoadedFile &file, const QPointer<MainWindow> &asker);
    MainWindow *add(std::shared_ptr<Document> document, LaidOut laidOut);

    std::unique_ptr<Questions> _questions;
    std::vector<QPointer<MainWindow>> _windows;
    Clip _clipboard;
    int _openingCount = 0;
};

} // namespace zarn::editor
