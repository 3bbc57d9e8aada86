// SPDX-License-Identifier: MIT
#include "app/Appearance.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "app/Setup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

int main(int argc, char **argv)
{
    using namespace zarn::editor;
    QApplication application(argc, argv);
    nameApplication();
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        QCoreApplication::translate("Main", "Writes and reads scores in notation and tablature."));
    arguments.addHelpOption();
    arguments.addVersionOption();
    arguments.addPositionalArgument(
        QCoreApplication::translate("Main", "files"),
        QCoreApplication::translate("Main", "Scores to open: documents, MusicXML, MIDI."),
        QStringLiteral("[FILE...]"));
    const QCommandLineOption picture(
        QStringLiteral("picture"),
        QCoreApplication::translate("Main",
                                    "A picture of the first window, after which the program ends."),
        QStringLiteral("PNG"));
    arguments.addOption(picture);
    arguments.process(application);
    const Setup setup;
    applyAppearance();

    Editor editor;
    const bool isRecovered = editor.offerLostDocuments();
    const QStringList files = arguments.positionalArguments();
    for (const QString &file : files)
        editor.open(file);
    // Without a file, or when none can be read, there is a new score to begin with.
    const auto begin = [&editor] {
        if (editor.windows().empty())
            editor.showNew();
    };
    const auto takePicture = [&] {
        if (!arguments.isSet(picture))
            return;
        constexpr int untilItIsShown = 500; // milliseconds
        QTimer::singleShot(untilItIsShown, [&] {
            const bool isSaved = editor.windows().front()->grab().save(arguments.value(picture));
            QCoreApplication::exit(isSaved ? 0 : 1);
        });
    };
    if (!editor.isOpening() && !isRecovered)
        begin();
    if (!editor.isOpening())
        takePicture();
    QObject::connect(&editor, &Editor::idle, [&] {
        begin();
        takePicture();
    });
    return QApplication::exec();
}
