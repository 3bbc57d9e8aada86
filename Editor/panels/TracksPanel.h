// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QTableWidget;

namespace zarn::editor {

/// The tracks: their names, the notations they are shown in, whether they are heard, which one the
/// cursor is on, and their order.
class TracksPanel : public Panel {
    Q_OBJECT
public:
    explicit TracksPanel(const ActionContext &context);
    ~TracksPanel() override;

protected:
    void follow() override;

private:
    void change(int row, int column);
    void turn(unsigned track, int column, bool isOn);
    void triggerAdd();
    void goTo(int row);
    void remove();
    void move(int step);
    int currentTrack() const;

    QTableWidget *_table;
    bool _isFollowing = false;
};

} // namespace zarn::editor
