// SPDX-License-Identifier: MIT
#include "dialogs/ShortcutsDialog.h"

#include "actions/ActionSet.h"
#include "actions/ActionTable.h"
#include "actions/ScoreStep.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

namespace zarn::editor {
namespace {

enum Column { Name, Keys };
constexpr int actionRole = Qt::UserRole;
constexpr int keysRole = Qt::UserRole + 1;

/// Null for a menu.
const Action *actionOf(const QTreeWidgetItem &item)
{
    const QString id = item.data(Name, actionRole).toString();
    for (const ActionGroup &group : actionTable())
        for (const Action &action : group.actions)
            if (!id.isEmpty() && action.id == id)
                return &action;
    return nullptr;
}

QList<QKeySequence> keysOf(const QTreeWidgetItem &item)
{
    return QKeySequence::listFromString(item.data(Keys, keysRole).toString(),
                                        QKeySequence::PortableText);
}

} // namespace

ShortcutsDialog::ShortcutsDialog(QWidget *parent)
    : QDialog(parent), _search(new QLineEdit), _tree(new QTreeWidget), _key(new QKeySequenceEdit),
      _message(new QLabel)
{
    setWindowTitle(tr("Shortcuts"));
    resize(600, 600);
    _search->setPlaceholderText(tr("Search"));
    _search->setClearButtonEnabled(true);
    _tree->setHeaderLabels({tr("Action"), tr("Keys")});
    _tree->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    _tree->setAccessibleName(tr("Actions"));
    _key->setAccessibleName(tr("New key"));
    auto *const set = new QPushButton(tr("&Set"));
    auto *const usual = new QPushButton(tr("As &usual"));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    auto *const all = new QVBoxLayout(this);
    all->addWidget(_search);
    all->addWidget(_tree);
    auto *const line = new QHBoxLayout;
    line->addWidget(_key);
    line->addWidget(set);
    line->addWidget(usual);
    all->addLayout(line);
    all->addWidget(_message);
    all->addWidget(buttons);

    connect(_search, &QLineEdit::textChanged, this, &ShortcutsDialog::filter);
    connect(_tree, &QTreeWidget::currentItemChanged, this, &ShortcutsDialog::choose);
    connect(set, &QPushButton::clicked, this, &ShortcutsDialog::change);
    connect(usual, &QPushButton::clicked, this, &ShortcutsDialog::reset);
    connect(buttons, &QDialogButtonBox::accepted, this, &ShortcutsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fill();
}

ShortcutsDialog::~ShortcutsDialog() = default;

void ShortcutsDialog::fill()
{
    for (const ActionGroup &group : actionTable()) {
        QTreeWidgetItem *folder = nullptr;
        for (const QString &title : group.menu) {
            QTreeWidgetItem *found = nullptr;
            const int count = folder ? folder->childCount() : _tree->topLevelItemCount();
            for (int i = 0; i < count; ++i) {
                QTreeWidgetItem *const child = folder ? folder->child(i) : _tree->topLevelItem(i);
                if (actionOf(*child) == nullptr && child->text(Name) == plainText(title))
                    found = child;
            }
            if (found == nullptr) {
                found = new QTreeWidgetItem({plainText(title)});
                if (folder != nullptr)
                    folder->addChild(found);
                else
                    _tree->addTopLevelItem(found);
            }
            folder = found;
        }
        for (const Action &action : group.actions) {
            auto *const item = new QTreeWidgetItem(folder, {plainText(action.text)});
            item->setData(Name, actionRole, action.id);
            setKeys(*item, shortcutsOf(action));
        }
    }
}

void ShortcutsDialog::setKeys(QTreeWidgetItem &item, const QList<QKeySequence> &keys)
{
    item.setData(Keys, keysRole, QKeySequence::listToString(keys, QKeySequence::PortableText));
    item.setText(Keys, QKeySequence::listToString(keys, QKeySequence::NativeText));
}

void ShortcutsDialog::filter(const QString &text)
{
    for (QTreeWidgetItemIterator it(_tree, QTreeWidgetItemIterator::NoChildren); *it != nullptr;
         ++it) {
        const bool fits = (*it)->text(Name).contains(text, Qt::CaseInsensitive)
            || (*it)->text(Keys).contains(text, Qt::CaseInsensitive);
        (*it)->setHidden(!fits);
        for (QTreeWidgetItem *above = (*it)->parent(); fits && above; above = above->parent())
            above->setExpanded(!text.isEmpty());
    }
}

void ShortcutsDialog::choose(QTreeWidgetItem *item)
{
    _message->clear();
    if (item != nullptr && actionOf(*item) != nullptr)
        _key->setKeySequence(keysOf(*item).value(0));
}

QTreeWidgetItem *ShortcutsDialog::ownerOf(const QKeySequence &key,
                                          const QTreeWidgetItem *except) const
{
    for (QTreeWidgetItemIterator it(_tree); *it != nullptr; ++it)
        if (*it != except && actionOf(**it) != nullptr && keysOf(**it).contains(key))
            return *it;
    return nullptr;
}

bool ShortcutsDialog::assign(const QString &id, const QKeySequence &key)
{
    for (QTreeWidgetItemIterator it(_tree); *it != nullptr; ++it) {
        if (actionOf(**it) == nullptr || actionOf(**it)->id != id)
            continue;
        const QTreeWidgetItem *const owner = key.isEmpty() ? nullptr : ownerOf(key, *it);
        if (owner != nullptr) {
            _message->setText(tr("\"%1\" has this key.").arg(owner->text(Name)));
            return false;
        }
        setKeys(**it, key.isEmpty() ? QList<QKeySequence>() : QList<QKeySequence>{key});
        return true;
    }
    return false;
}

void ShortcutsDialog::change()
{
    QTreeWidgetItem *const item = _tree->currentItem();
    if (item != nullptr && actionOf(*item) != nullptr)
        assign(actionOf(*item)->id, _key->keySequence());
}

void ShortcutsDialog::reset()
{
    QTreeWidgetItem *const item = _tree->currentItem();
    if (item == nullptr || actionOf(*item) == nullptr)
        return;
    setKeys(*item, actionOf(*item)->keys);
    choose(item);
}

void ShortcutsDialog::accept()
{
    for (QTreeWidgetItemIterator it(_tree); *it != nullptr; ++it)
        if (actionOf(**it) != nullptr)
            setShortcutsOf(*actionOf(**it), keysOf(**it));
    QDialog::accept();
}

} // namespace zarn::editor
