// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace zarn::editor {

/// What the beat, the note and the bar of the cursor are marked with, from the tables of the
/// attributes; each value can be set in a field
/// of its kind, and goes to all that is selected.
class PropertiesPanel : public Panel {
    Q_OBJECT
public:
    explicit PropertiesPanel(const ActionContext &context);
    ~PropertiesPanel() override;

protected:
    void follow() override;

private:
    template <class Node>
    void addRows(const QString &title);
    template <class Node>
    void showRows(QTreeWidgetItem &folder);
    template <class Node>
    bool set(const QTreeWidgetItem &item);
    template <class Node>
    void askFor(const QTreeWidgetItem &item);
    void change(QTreeWidgetItem *item, int column);
    void activate(QTreeWidgetItem *item);
    int valueWidth() const;

    QTreeWidget *_tree;
    bool _isFollowing = false;
};

} // namespace zarn::editor
