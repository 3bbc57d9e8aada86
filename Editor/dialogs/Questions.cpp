// SPDX-License-Identifier: MIT
#include "dialogs/Questions.h"

#include "dialogs/FormDialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Questions)
};

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
    if (path.isEmpty() || !QFileInfo(path).suffix().isEmpty())
        return path;
    // "Name (*.first *.second)": a name without a suffix gets the usual one.
    const QString suffix =
        chosen.section(QStringLiteral("*."), 1, 1).section(QLatin1Char(' '), 0, 0);
    return path + QLatin1Char('.') + QString(suffix).remove(QLatin1Char(')'));
}

void Questions::tell(QWidget *window, const QString &message, const QStringList &details)
{
    QMessageBox box(QMessageBox::Information, QCoreApplication::applicationName(), message,
                    QMessageBox::Ok, window);
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
