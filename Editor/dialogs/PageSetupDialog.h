// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/layout/ZarnPageSetup.h>

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;

namespace zarn::editor {

/// The sheet that a score is laid out on, in millimetres.
class PageSetupDialog : public QDialog {
    Q_OBJECT
public:
    PageSetupDialog(const PageSetup &present, QWidget *parent);
    ~PageSetupDialog() override;

    PageSetup setup() const;

private:
    QComboBox *_size;
    QComboBox *_orientation;
    QDoubleSpinBox *_width;
    QDoubleSpinBox *_height;
    QDoubleSpinBox *_left;
    QDoubleSpinBox *_top;
    QDoubleSpinBox *_right;
    QDoubleSpinBox *_bottom;
    QDoubleSpinBox *_staffSpace;
};

} // namespace zarn::editor
