// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

#include <functional>
#include <vector>

namespace zarn::editor {

/// A kind of panel. A new one is a row of the table in PanelTable.cpp; its entry in the menu "View"
/// comes by itself.
struct PanelRow {
    /// What settings call it, the same in all languages.
    QString id;
    QString title;
    Qt::DockWidgetArea area;
    /// Whether it is there when the program is started first.
    bool isShownAtFirst;
    std::function<std::unique_ptr<Panel>(const ActionContext &)> make;
};

const std::vector<PanelRow> &panelTable();

} // namespace zarn::editor
