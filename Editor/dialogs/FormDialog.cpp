// SPDX-License-Identifier: MIT
#include "dialogs/FormDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace zarn::editor {

namespace {

/// Shows no more decimals than there are.
class DecimalBox : public QDoubleSpinBox {
public:
    QString textFromValue(double value) const override
    {
        constexpr int digits = 8;
        return locale().toString(value, 'g', digits);
    }
};

} // namespace

FormDialog::FormDialog(const Form &form, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(form.title());
    auto *const all = new QVBoxLayout(this);
    auto *const lines = new QFormLayout;
    all->addLayout(lines);
    for (const FormField &field : form.fields()) {
        QWidget *const widget = makeField(field);
        widget->setObjectName(field.id);
        widget->setToolTip(field.hint);
        if (field.kind == FormField::Kind::Switch)
            lines->addRow(widget);
        else
            lines->addRow(field.label, widget);
        if (field.kind == FormField::Kind::Switch || field.hint.isEmpty())
            continue;
        auto *const hint = new QLabel(field.hint);
        hint->setWordWrap(true);
        QFont small = hint->font();
        small.setPointSizeF(small.pointSizeF() * 0.9);
        hint->setFont(small);
        lines->addRow(QString(), hint);
    }
    all->addStretch();
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    all->addWidget(buttons);
}

FormDialog::~FormDialog() = default;

QWidget *FormDialog::makeField(const FormField &field)
{
    constexpr int lineWidth = 260; // pixels
    switch (field.kind) {
    case FormField::Kind::Text: {
        auto *const line = new QLineEdit(field.value.toString());
        line->setMinimumWidth(lineWidth);
        line->selectAll();
        _readers.emplace_back(field.id, [line] { return line->text(); });
        return line;
    }
    case FormField::Kind::LongText: {
        auto *const text = new QPlainTextEdit(field.value.toString());
        text->setTabChangesFocus(true);
        text->setMinimumSize(lineWidth, 56);
        _readers.emplace_back(field.id, [text] { return text->toPlainText(); });
        return text;
    }
    case FormField::Kind::Number: {
        auto *const box = new QSpinBox;
        box->setRange(static_cast<int>(field.least), static_cast<int>(field.most));
        box->setValue(field.value.toInt());
        box->selectAll();
        _readers.emplace_back(field.id, [box] { return box->value(); });
        return box;
    }
    case FormField::Kind::Decimal: {
        auto *const box = new DecimalBox;
        box->setRange(field.least, field.most);
        box->setDecimals(3);
        box->setSingleStep(field.most - field.least > 100 ? 1 : (field.most - field.least) / 100);
        box->setValue(field.value.toDouble());
        box->selectAll();
        _readers.emplace_back(field.id, [box] { return box->value(); });
        return box;
    }
    case FormField::Kind::Choice: {
        auto *const box = new QComboBox;
        box->addItems(field.choices);
        box->setCurrentIndex(field.value.toInt());
        _readers.emplace_back(field.id, [box] { return box->currentIndex(); });
        return box;
    }
    case FormField::Kind::Switch:
        break;
    }
    auto *const box = new QCheckBox(field.label);
    box->setChecked(field.value.toBool());
    _readers.emplace_back(field.id, [box] { return box->isChecked(); });
    return box;
}

QVariantMap FormDialog::values() const
{
    QVariantMap values;
    for (const auto &[id, read] : _readers)
        values.insert(id, read());
    return values;
}

} // namespace zarn::editor
