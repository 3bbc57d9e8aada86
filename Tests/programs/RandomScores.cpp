// SPDX-License-Identifier: MIT
// Scores that nobody wrote, as native documents for programs that check what is drawn of them.
#include "support/NativeDocument.h"
#include "support/RandomArguments.h"
#include "support/RandomEditor.h"
#include "support/RandomScore.h"
#include "support/ScoreFiles.h"

#include <ZarnCore/score/ZarnScore.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

namespace {

void write(const zarn::ScoreModel &model, const QString &folder, const QString &name)
{
    QSaveFile file(QDir(folder).filePath(name + QStringLiteral(".zarn")));
    const std::string document = test::writeNative(model);
    const auto size = static_cast<qint64>(document.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(document.data(), size) != size
        || !file.commit())
        throw std::runtime_error(file.fileName().toStdString() + " cannot be written");
    std::printf("%s\n", qPrintable(file.fileName()));
}

void writeEdited(const std::string &path, unsigned edits, std::uint64_t seed, const QString &folder)
{
    zarn::Score score;
    *score.scoreModel() = *readScore(path);
    RandomEditor editor(score, seed, 2 * edits + 64);
    while (editor.tally().edits < edits)
        editor.step();
    write(*score.scoreModel(), folder,
          QFileInfo(QString::fromStdString(path)).completeBaseName()
              + QStringLiteral("-%1").arg(seed));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // Commands that are refused are what this is about: they need no warning each.
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    RandomArguments arguments(
        QStringLiteral("Writes scores as they are behind random edits, and scores that are made of "
                       "nothing but chance."),
        1000);
    const QCommandLineOption folder(QStringLiteral("folder"), QStringLiteral("Where to write."),
                                    QStringLiteral("FOLDER"), QStringLiteral("."));
    const QCommandLineOption made(QStringLiteral("made"),
                                  QStringLiteral("Scores of chance, beside those that are edited."),
                                  QStringLiteral("N"), QStringLiteral("0"));
    arguments.add(folder);
    arguments.add(made);
    if (!arguments.read(application))
        return 2;
    try {
        const QString where = arguments.value(folder);
        for (const std::string &path : arguments.paths())
            writeEdited(path, arguments.edits(), arguments.seed(), where);
        const auto seed = static_cast<std::uint32_t>(arguments.seed());
        for (std::uint32_t i = 0; i < arguments.value(made).toUInt(); ++i)
            write(*test::RandomScore(seed + i).make(), where,
                  QStringLiteral("chance-%1").arg(seed + i));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
