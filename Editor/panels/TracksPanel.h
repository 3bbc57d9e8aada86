// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QTableWidget;

namespace zarn::editor {

/// The tracks: their names, which one the cursor is on, and their order.
class TracksPanel : public Panel {
    Q_OBJECT
public:
    explicit TracksPanel(const ActionContext &context);
    ~TracksPanel() override;

protected:
    void follow() override;

private:
    void rename(int row, int column);
    void goTo(int row);
    void remove();
    void move(int step);
    int currentTrack() const;

    QTableWidget *_table;
    bool _isFollowing = false;
};

} // namespace zarn::editor
