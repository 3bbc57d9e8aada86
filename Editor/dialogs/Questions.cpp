// SPDX-License-Identifier: MIT
#include "dialogs/Questions.h"

#include "dialogs/FormDialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

#include <algorithm>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Questions)
};

/// Of "Name (*.first *.second)".
QStringList suffixesOf(const QString &filter)
{
    QStringList suffixes;
    const QString patterns = filter.section(QLatin1Char('('), -1).section(QLatin1Char(')'), 0, 0);
    for (const QString &pattern : patterns.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        suffixes << pattern.section(QLatin1Char('.'), -1);
    return suffixes;
}

} // namespace

Questions::~Questions() = default;

Questions::Answer Questions::askToSave(QWidget *window, const QString &name)
{
    const auto button = QMessageBox::warning(
        window, QCoreApplication::applicationName(),
        Text::tr("\"%1\" has changes that are not saved.").arg(name),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return button == QMessageBox::Save   ? Answer::Save
        : button == QMessageBox::Discard ? Answer::Discard
                                         : Answer::Cancel;
}

bool Questions::askYesOrNo(QWidget *window, const QString &question)
{
    return QMessageBox::question(window, QCoreApplication::applicationName(), question)
        == QMessageBox::Yes;
}

QString Questions::fileToOpen(QWidget *window, const QString &filters)
{
    return QFileDialog::getOpenFileName(window, QString(), QString(), filters);
}

QString Questions::fileToSave(QWidget *window, const QString &proposal, const QStringList &filters)
{
    QString chosen;
    const QString path = QFileDialog::getSaveFileName(window, QString(), proposal,
                                                      filters.join(QStringLiteral(";;")), &chosen);
    const QString suffix = QFileInfo(path).suffix();
    const auto isOf = [&suffix](const QString &filter) {
        return suffixesOf(filter).contains(suffix, Qt::CaseInsensitive);
    };
    if (path.isEmpty() || std::any_of(filters.begin(), filters.end(), isOf))
        return path;
    // A name without one of the suffixes gets the usual one; the dialog did not know of that file.
    const QString whole = path + QLatin1Char('.') + suffixesOf(chosen).value(0);
    const bool isWanted = !QFileInfo::exists(whole)
        || askYesOrNo(
            window,
            Text::tr("\"%1\" is there already. Replace it?").arg(QFileInfo(whole).fileName()));
    return isWanted ? whole : QString();
}

void Questions::tell(QWidget *window, const QString &message, const QStringList &details)
{
    QMessageBox box(QMessageBox::Information, QCoreApplication::applicationName(), message,
                    QMessageBox::Ok, window);
    // A reason is read at once, a list by those who want it.
    if (details.size() == 1)
        box.setInformativeText(details.front());
    else
        box.setDetailedText(details.join(QLatin1Char('\n')));
    box.exec();
}

std::optional<QVariantMap> Questions::askForm(QWidget *window, const Form &form)
{
    FormDialog dialog(form, window);
    return dialog.exec() == QDialog::Accepted ? std::optional<QVariantMap>(dialog.values())
                                              : std::nullopt;
}

std::optional<QString> Questions::askText(QWidget *window, const QString &label,
                                          const QString &present)
{
    bool isGiven = false;
    const QString given = QInputDialog::getText(window, QCoreApplication::applicationName(), label,
                                                QLineEdit::Normal, present, &isGiven);
    return isGiven ? std::optional<QString>(given) : std::nullopt;
}

std::optional<int> Questions::askNumber(QWidget *window, const QString &label, int present,
                                        int least, int most)
{
    bool isGiven = false;
    const int given = QInputDialog::getInt(window, QCoreApplication::applicationName(), label,
                                           present, least, most, 1, &isGiven);
    return isGiven ? std::optional<int>(given) : std::nullopt;
}

std::optional<int> Questions::askChoice(QWidget *window, const QString &label,
                                        const QStringList &choices, int present)
{
    bool isGiven = false;
    const QString given = QInputDialog::getItem(window, QCoreApplication::applicationName(), label,
                                                choices, present, false, &isGiven);
    return isGiven ? std::optional<int>(choices.indexOf(given)) : std::nullopt;
}

} // namespace zarn::editor
