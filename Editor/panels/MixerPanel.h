// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

#include <vector>

class QHBoxLayout;
class QLabel;
class QSlider;
class QToolButton;

namespace zarn::editor {

/// How loud each track is and where it is heard, with switches that mute it or let it be heard
/// alone; the master in front.
class MixerPanel : public Panel {
    Q_OBJECT
public:
    explicit MixerPanel(const ActionContext &context);
    ~MixerPanel() override;

protected:
    void follow() override;

private:
    struct Strip {
        QWidget *widget;
        QLabel *name;
        QSlider *volume;
        QSlider *pan;
        QToolButton *mute;
        QToolButton *solo;
    };

    Strip makeStrip(int track);
    void show(const Strip &strip, int track);
    void setLevel(int track, bool isPan, int value);

    QHBoxLayout *_row;
    std::vector<Strip> _strips; ///< the master first
    bool _isFollowing = false;
};

} // namespace zarn::editor
