// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QKeySequence>

class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace zarn::editor {

/// All actions with their shortcuts, which can be changed. What is accepted is in the settings
/// then; windows take it from there.
class ShortcutsDialog : public QDialog {
    Q_OBJECT
public:
    explicit ShortcutsDialog(QWidget *parent);
    ~ShortcutsDialog() override;

    /// Chooses an action and gives it a key instead of those that it has; false for one that
    /// another action has, or when there is no such action.
    bool assign(const QString &id, const QKeySequence &key);

    void accept() override;

private:
    void fill();
    void filter(const QString &text);
    void choose(QTreeWidgetItem *item);
    void setKeys(QTreeWidgetItem &item, const QList<QKeySequence> &keys);
    QTreeWidgetItem *ownerOf(const QKeySequence &key, const QTreeWidgetItem *except) const;
    void change();
    void reset();

    QLineEdit *_search;
    QTreeWidget *_tree;
    QKeySequenceEdit *_key;
    QLabel *_message;
};

} // namespace zarn::editor
