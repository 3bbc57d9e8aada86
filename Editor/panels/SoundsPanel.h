// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace zarn {
class Effect;
class EffectChain;
class Score;
} // namespace zarn

namespace zarn::editor {

/// The sounds that the track of the cursor can be played with, each with the effects that it runs
/// through, and the effects of the whole mix. A ticked sound is played throughout; an effect that
/// is not ticked is passed by.
class SoundsPanel : public Panel {
    Q_OBJECT
public:
    explicit SoundsPanel(const ActionContext &context);
    ~SoundsPanel() override;

protected:
    void follow() override;

private:
    /// A line of the tree: a chain's owner or one of its effects.
    struct Line {
        int track = -1; ///< -1 is the whole mix
        int sound = -1;
        int slot = -1; ///< -1 is the owner itself

        bool isSound() const noexcept { return track >= 0 && slot < 0; }
        bool isEffect() const noexcept { return slot >= 0; }
    };

    Line lineOf(const QTreeWidgetItem *item) const;
    Line currentLine() const;
    const EffectChain *chainOf(const Line &line) const;
    QTreeWidgetItem *addLine(QTreeWidgetItem *parent, const Line &line, const QString &text);
    void addEffects(QTreeWidgetItem *parent, const Line &line);

    void addSound();
    void addEffect();
    void edit();
    void editSound(const Line &line);
    void editEffect(const Line &line);
    void remove();
    void clear();
    void copy();
    void move(int step);
    void change(QTreeWidgetItem *item);

    QTreeWidget *_tree;
    bool _isFollowing = false;
};

} // namespace zarn::editor
