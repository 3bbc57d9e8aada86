// SPDX-License-Identifier: MIT
#include "actions/ActionSet.h"

#include "actions/ActionTable.h"
#include "app/MainWindow.h"
#include "app/ScoreView.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

#include <map>

namespace zarn::editor {
namespace {

QString settingOf(const Action &action)
{
    return QStringLiteral("shortcuts/") + action.id;
}

QList<QKeySequence> shortcutsIn(const QSettings &settings, const Action &action)
{
    if (!settings.contains(settingOf(action)))
        return action.keys;
    return QKeySequence::listFromString(settings.value(settingOf(action)).toString(),
                                        QKeySequence::PortableText);
}

} // namespace

QList<QKeySequence> shortcutsOf(const Action &action)
{
    return shortcutsIn(QSettings(), action);
}

void setShortcutsOf(const Action &action, const QList<QKeySequence> &keys)
{
    if (keys == shortcutsOf(action))
        return; // each change is a file that is written
    QSettings settings;
    if (keys == action.keys)
        settings.remove(settingOf(action));
    else
        settings.setValue(settingOf(action),
                          QKeySequence::listToString(keys, QKeySequence::PortableText));
}

ActionSet::ActionSet(const ActionContext &context, QMenuBar &menus) : _context(context)
{
    std::map<QString, QMenu *> known;
    const auto menuOf = [&](const QStringList &titles) {
        QMenu *menu = nullptr;
        QString path;
        for (const QString &title : titles) {
            path += QLatin1Char('\n') + title;
            QMenu *&entry = known[path];
            if (entry == nullptr)
                entry = menu == nullptr ? menus.addMenu(title) : menu->addMenu(title);
            menu = entry;
        }
        return menu;
    };
    for (const ActionGroup &group : actionTable()) {
        QMenu *const menu = menuOf(group.menu);
        if (!menu->isEmpty())
            menu->addSeparator();
        for (const Action &action : group.actions) {
            auto *const shown = menu->addAction(action.text);
            shown->setObjectName(action.id);
            shown->setCheckable(action.isChecked != nullptr);
            if (action.scope == KeyScope::Score) {
                shown->setShortcutContext(Qt::WidgetShortcut);
                _context.view.addAction(shown);
            } else {
                _context.window.addAction(shown);
            }
            connect(shown, &QAction::triggered, this, [this, &action] {
                action.run(_context);
                refresh();
            });
            _entries.push_back({&action, shown});
        }
    }
    applyShortcuts();
    refresh();
}

ActionSet::~ActionSet() = default;

void ActionSet::markStale()
{
    if (_isStale)
        return;
    _isStale = true;
    QMetaObject::invokeMethod(this, &ActionSet::refresh, Qt::QueuedConnection);
}

void ActionSet::refresh()
{
    _isStale = false;
    for (const Entry &entry : _entries) {
        entry.shown->setEnabled(!entry.action->isEnabled || entry.action->isEnabled(_context));
        if (entry.action->isChecked)
            entry.shown->setChecked(entry.action->isChecked(_context));
        if (entry.action->currentText)
            entry.shown->setText(entry.action->currentText(_context));
    }
}

void ActionSet::applyShortcuts()
{
    const QSettings settings; // each one looks for its file
    for (const Entry &entry : _entries)
        entry.shown->setShortcuts(shortcutsIn(settings, *entry.action));
}

QAction *ActionSet::find(const QString &id) const
{
    for (const Entry &entry : _entries)
        if (entry.action->id == id)
            return entry.shown;
    return nullptr;
}

} // namespace zarn::editor
