// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Action.h"

#include <QObject>

class QAction;
class QMenuBar;

namespace zarn::editor {

/// The actions of one window: its menus, with the shortcuts that the user chose.
class ActionSet : public QObject {
    Q_OBJECT
public:
    /// Fills the menu bar; the context must outlive it.
    ActionSet(const ActionContext &context, QMenuBar &menus);
    ~ActionSet() override;

    /// What is enabled, checked and called so now.
    void refresh();
    /// Does so in the next turn of the event loop, once for many changes.
    void markStale();

    /// Takes the shortcuts that the settings hold.
    void applyShortcuts();

    /// Null for an id that no action has.
    QAction *find(const QString &id) const;

private:
    struct Entry {
        const Action *action;
        QAction *shown;
    };

    ActionContext _context;
    std::vector<Entry> _entries;
    bool _isStale = false;
};

/// The shortcuts of an action: those that the user chose, else the usual ones.
QList<QKeySequence> shortcutsOf(const Action &action);
void setShortcutsOf(const Action &action, const QList<QKeySequence> &keys);

} // namespace zarn::editor
