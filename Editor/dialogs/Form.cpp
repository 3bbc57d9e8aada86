// SPDX-License-Identifier: MIT
#include "dialogs/Form.h"

namespace zarn::editor {

Form &Form::text(const char *id, const QString &label, const QString &value, const QString &hint)
{
    return add(id, label, FormField::Kind::Text, value, hint);
}

Form &Form::longText(const char *id, const QString &label, const QString &value,
                     const QString &hint)
{
    return add(id, label, FormField::Kind::LongText, value, hint);
}

Form &Form::number(const char *id, const QString &label, int value, int least, int most,
                   const QString &hint)
{
    add(id, label, FormField::Kind::Number, value, hint);
    _fields.back().least = least;
    _fields.back().most = most;
    return *this;
}

Form &Form::decimal(const char *id, const QString &label, double value, double least, double most)
{
    add(id, label, FormField::Kind::Decimal, value, {});
    _fields.back().least = least;
    _fields.back().most = most;
    return *this;
}

Form &Form::choice(const char *id, const QString &label, const QStringList &choices, int value,
                   const QString &hint)
{
    add(id, label, FormField::Kind::Choice, value, hint);
    _fields.back().choices = choices;
    return *this;
}

Form &Form::turn(const char *id, const QString &label, bool isOn, const QString &hint)
{
    return add(id, label, FormField::Kind::Switch, isOn, hint);
}

QVariantMap Form::values() const
{
    QVariantMap values;
    for (const FormField &field : _fields)
        values.insert(field.id, field.value);
    return values;
}

Form &Form::add(const char *id, const QString &label, FormField::Kind kind, const QVariant &value,
                const QString &hint)
{
    FormField field;
    field.id = QLatin1String(id);
    field.label = label;
    field.kind = kind;
    field.value = value;
    field.hint = hint;
    _fields.push_back(std::move(field));
    return *this;
}

} // namespace zarn::editor
