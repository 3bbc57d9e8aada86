// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QListWidget;

namespace zarn::editor {

/// The form of the piece: its sections with their first bars, as long as they are. A click leads
/// there.
class SectionsPanel : public Panel {
    Q_OBJECT
public:
    explicit SectionsPanel(const ActionContext &context);
    ~SectionsPanel() override;

protected:
    void follow() override;

private:
    void goTo(int row);

    QListWidget *_list;
    bool _isFollowing = false;
};

} // namespace zarn::editor
