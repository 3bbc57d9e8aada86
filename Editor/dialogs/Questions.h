// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/Form.h"

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace zarn::editor {

/// What a user is asked and told in windows of their own. Tests answer in their place.
class Questions {
public:
    enum class Answer { Save, Discard, Cancel };

    Questions() = default;
    virtual ~Questions();
    Questions(const Questions &) = delete;
    Questions &operator=(const Questions &) = delete;

    /// Before changes would be lost.
    virtual Answer askToSave(QWidget *window, const QString &name);
    virtual bool askYesOrNo(QWidget *window, const QString &question);

    // Paths; empty when nothing was chosen.

    virtual QString fileToOpen(QWidget *window, const QString &filters);
    virtual QString fileToSave(QWidget *window, const QString &proposal,
                               const QStringList &filters);

    /// A message; details are what a user may want to read or not.
    virtual void tell(QWidget *window, const QString &message, const QStringList &details = {});
    /// The values of all fields by their ids; nothing when the user wants none of it.
    virtual std::optional<QVariantMap> askForm(QWidget *window, const Form &form);
    virtual std::optional<QString> askText(QWidget *window, const QString &label,
                                           const QString &present);
    virtual std::optional<int> askNumber(QWidget *window, const QString &label, int present,
                                         int least, int most);
    /// The place of one of the texts.
    virtual std::optional<int> askChoice(QWidget *window, const QString &label,
                                         const QStringList &choices, int present);
};

} // namespace zarn::editor
