// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <memory>

class QTreeWidget;
class QTreeWidgetItem;

namespace zarn {
class AutomationContainer;
class Score;
} // namespace zarn

namespace zarn::editor {

class Form;

/// What changes while the score is played: tempos and the mix of the whole score, volume, panning,
/// sounds and effects of the cursor's track. A kind that is not ticked is left out.
class AutomationsPanel : public Panel {
    Q_OBJECT
public:
    explicit AutomationsPanel(const ActionContext &context);
    ~AutomationsPanel() override;

protected:
    void follow() override;

private:
    /// What a line shows: all of a type, or one at a place.
    struct Line {
        int track = -1; ///< -1 is the whole score
        Automation::Type type = Automation::Unknown;
    };

    const AutomationContainer *containerOf(int track) const;
    void addTypes(int track);
    void addType(int track, Automation::Type type);
    Line lineOf(const QTreeWidgetItem &item) const;
    const Automation *currentAutomation() const;
    QString nameOf(const Line &line) const;
    QString valueOf(const Automation &automation) const;

    void add();
    void edit();
    void remove();
    void change(QTreeWidgetItem *item);
    bool exchange(const QString &title, const Line &line, const Automation *removed,
                  const Automation *inserted);
    /// Asks for place and value of an automation; nothing when the user wants it no more.
    std::unique_ptr<Automation> ask(const Line &line, const Automation *present) const;

    QTreeWidget *_tree;
    bool _isFollowing = false;
};

} // namespace zarn::editor
