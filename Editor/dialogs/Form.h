// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <vector>

namespace zarn::editor {

/// One thing that a form asks for.
struct FormField {
    enum class Kind {
        Text,
        LongText, ///< of several lines
        Number,   ///< `int`
        Decimal,  ///< `double`
        Choice,   ///< the place of one of the choices, an `int`
        Switch,   ///< `bool`
    };

    /// What answers call it, the same in all languages.
    QString id;
    QString label;
    Kind kind = Kind::Text;
    QVariant value; ///< at first
    double least = 0;
    double most = 0;
    QStringList choices;
    QString hint; ///< what may be typed, or what it means
};

/// Several questions that belong together, asked in one window: `Questions::askForm`.
class Form {
public:
    explicit Form(QString title) : _title(std::move(title)) { }

    Form &text(const char *id, const QString &label, const QString &value,
               const QString &hint = {});
    Form &longText(const char *id, const QString &label, const QString &value,
                   const QString &hint = {});
    Form &number(const char *id, const QString &label, int value, int least, int most,
                 const QString &hint = {});
    Form &decimal(const char *id, const QString &label, double value, double least, double most);
    Form &choice(const char *id, const QString &label, const QStringList &choices, int value,
                 const QString &hint = {});
    Form &turn(const char *id, const QString &label, bool isOn, const QString &hint = {});

    const QString &title() const noexcept { return _title; }
    const std::vector<FormField> &fields() const noexcept { return _fields; }

    /// All values as they are at first.
    QVariantMap values() const;

private:
    Form &add(const char *id, const QString &label, FormField::Kind kind, const QVariant &value,
              const QString &hint);

    QString _title;
    std::vector<FormField> _fields;
};

} // namespace zarn::editor
