// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace zarn::editor {

/// What the beat, the note and the bar of the cursor are marked with, from the tables of the
/// attributes; each value can be typed, and goes to all that is selected.
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
    bool set(const QTreeWidgetItem &item, const QString &text);
    void change(QTreeWidgetItem *item, int column);

    QTreeWidget *_tree;
    bool _isFollowing = false;
};

} // namespace zarn::editor
