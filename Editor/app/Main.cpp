// SPDX-License-Identifier: MIT
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "app/Setup.h"

#include <QApplication>
#include <QCommandLineParser>

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
    arguments.process(application);
    const Setup setup;

    Editor editor;
    const QStringList files = arguments.positionalArguments();
    for (const QString &file : files)
        editor.open(file);
    // Without a file, or when none can be read, there is a new score to begin with.
    const auto begin = [&editor] {
        if (editor.windows().empty())
            editor.showNew();
    };
    if (files.isEmpty())
        begin();
    else
        QObject::connect(&editor, &Editor::idle, begin);
    return QApplication::exec();
}
