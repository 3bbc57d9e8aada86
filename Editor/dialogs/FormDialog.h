// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/Form.h"

#include <QDialog>

#include <functional>

namespace zarn::editor {

/// A form as a window: a line for each field, each named by its id.
class FormDialog : public QDialog {
    Q_OBJECT
public:
    FormDialog(const Form &form, QWidget *parent);
    ~FormDialog() override;

    /// As they are now.
    QVariantMap values() const;

private:
    QWidget *makeField(const FormField &field);

    std::vector<std::pair<QString, std::function<QVariant()>>> _readers;
};

} // namespace zarn::editor
