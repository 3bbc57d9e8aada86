// SPDX-License-Identifier: MIT
#include "dialogs/PageSetupDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPageSize>

#include <cmath>

namespace zarn::editor {
namespace {

constexpr double micrometres = 1000; // in a millimetre

/// The sizes that printers have; the last entry of the list is a size of one's own.
constexpr QPageSize::PageSizeId sizes[] = {QPageSize::A3,     QPageSize::A4,    QPageSize::A5,
                                           QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

QDoubleSpinBox *millimetres(double least, double most, double step, int value)
{
    auto *const box = new QDoubleSpinBox;
    box->setRange(least, most);
    box->setSingleStep(step);
    box->setDecimals(2);
    box->setSuffix(QStringLiteral(" mm"));
    box->setValue(value / micrometres);
    return box;
}

int lengthOf(const QDoubleSpinBox &box)
{
    return static_cast<int>(std::lround(box.value() * micrometres));
}

} // namespace

PageSetupDialog::PageSetupDialog(const PageSetup &present, QWidget *parent)
    : QDialog(parent), _size(new QComboBox), _orientation(new QComboBox),
      _width(millimetres(20, 2000, 1, present.width)),
      _height(millimetres(20, 2000, 1, present.height)),
      _left(millimetres(0, 500, 1, present.leftMargin)),
      _top(millimetres(0, 500, 1, present.topMargin)),
      _right(millimetres(0, 500, 1, present.rightMargin)),
      _bottom(millimetres(0, 500, 1, present.bottomMargin)),
      _staffSpace(millimetres(0.5, 10, 0.05, present.staffSpace))
{
    setWindowTitle(tr("Page setup"));
    int chosen = static_cast<int>(std::size(sizes));
    for (const QPageSize::PageSizeId id : sizes) {
        const QSizeF size = QPageSize::size(id, QPageSize::Millimeter);
        if (std::abs(size.width() - _width->value()) < 0.6
            && std::abs(size.height() - _height->value()) < 0.6)
            chosen = _size->count();
        _size->addItem(QPageSize::name(id), size);
    }
    _size->addItem(tr("Another size"));
    _size->setCurrentIndex(chosen);
    _orientation->addItems({tr("Portrait"), tr("Landscape")});
    _orientation->setCurrentIndex(static_cast<int>(present.orientation));
    connect(_size, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        const QSizeF size = _size->itemData(index).toSizeF();
        if (!size.isValid())
            return;
        _width->setValue(size.width());
        _height->setValue(size.height());
    });

    auto *const form = new QFormLayout(this);
    form->addRow(tr("&Sheet"), _size);
    form->addRow(tr("&Width, upright"), _width);
    form->addRow(tr("&Height, upright"), _height);
    form->addRow(tr("&Orientation"), _orientation);
    form->addRow(tr("&Left margin"), _left);
    form->addRow(tr("&Top margin"), _top);
    form->addRow(tr("&Right margin"), _right);
    form->addRow(tr("&Bottom margin"), _bottom);
    form->addRow(tr("Between two staff l&ines"), _staffSpace);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

PageSetupDialog::~PageSetupDialog() = default;

PageSetup PageSetupDialog::setup() const
{
    PageSetup setup;
    setup.width = lengthOf(*_width);
    setup.height = lengthOf(*_height);
    setup.orientation = static_cast<PageSetup::Orientation>(_orientation->currentIndex());
    setup.leftMargin = lengthOf(*_left);
    setup.topMargin = lengthOf(*_top);
    setup.rightMargin = lengthOf(*_right);
    setup.bottomMargin = lengthOf(*_bottom);
    setup.staffSpace = lengthOf(*_staffSpace);
    return setup;
}

} // namespace zarn::editor
