// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

namespace zarn::editor {

class Document;
class MainWindow;
class ScoreView;

/// Where an action is done.
struct ActionContext {
    MainWindow &window;
    Document &document;
    ScoreView &view;
};

/// Where the keys of an action count.
enum class KeyScope {
    Window,
    Score, ///< while the pages have the focus: keys without modifiers, which elsewhere are text
};

/// One thing that a user can do. Menus, shortcuts, the dialog that changes them and the tests that
/// try everything are made of these alone.
struct Action {
    /// "edit.undo": what settings call it, the same in all languages.
    QString id;
    QString text;
    /// The usual ones; the first is shown.
    QList<QKeySequence> keys;
    std::function<void(const ActionContext &)> run;
    /// Nothing means always.
    std::function<bool(const ActionContext &)> isEnabled = nullptr;
    KeyScope scope = KeyScope::Window;
    /// For what is on or off.
    std::function<bool(const ActionContext &)> isChecked = nullptr;
    /// For what says more than its name, such as what undo will undo.
    std::function<QString(const ActionContext &)> currentText = nullptr;
    /// Asks something by a dialog, so that nobody tries it unattended.
    bool isAsking = false;
};

/// A menu, or a part of one: those with the same titles are one menu, with lines between its parts.
struct ActionGroup {
    /// From the menu bar on: {"Note", "Articulations"}.
    QStringList menu;
    std::vector<Action> actions;
};

} // namespace zarn::editor
