// SPDX-License-Identifier: MIT
#include "common/Program.h"

#include "audio/AudioPart.h"
#include "catalog/CatalogCommand.h"
#include "chord/ChordCommand.h"
#include "common/Failure.h"
#include "common/Manual.h"
#include "common/Terminal.h"
#include "convert/ConvertCommand.h"
#ifdef ZARN_HAS_LAYOUT
#include "draw/DrawCommand.h"
#endif
#include "edit/EditCommand.h"
#include "events/EventsCommand.h"
#include "info/InfoCommand.h"
#include "info/NotesCommand.h"
#include "new/NewCommand.h"
#include "scale/ScaleCommand.h"
#include "show/ShowCommand.h"

#include <ZarnCore/ZarnException.h>

#include <QLoggingCategory>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

void say(const QString &text)
{
    std::cout << text.toStdString();
}

/// Messages of the library, for people: warnings and worse, one line each.
void printLogged(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool isWarning = type == QtWarningMsg;
    std::cerr << (isWarning ? "zarn: warning: " : "zarn: ") << printable(text.toStdString())
              << '\n';
}

QString generalHelp()
{
    QString help = QStringLiteral(
        "Usage: zarn COMMAND [OPTION...] FILE...\n\n"
        "Makes scores, looks into them, shows, edits and converts them; names chords and "
        "scales.\n\n"
        "Commands:\n");
    for (const Subcommand &command : subcommands())
        help += QStringLiteral("  %1  %2\n").arg(command.name.leftJustified(8), command.summary);
    help += QStringLiteral(
        "\nzarn help COMMAND    what a command takes\n"
        "zarn --version       the version of the program\n"
        "zarn --man-page, zarn --bash-completion    all of this for man and for bash\n\n"
        "Exit codes: 0 done, 1 a document or an edit had an error, 2 wrong usage.\n");
    return help;
}

/// All but those that sound.
const std::vector<Subcommand> &silentCommands()
{
    static const std::vector<Subcommand> all = {infoCommand(), notesCommand(),   eventsCommand(),
                                                showCommand(), editCommand(),    convertCommand(),
#ifdef ZARN_HAS_LAYOUT
                                                drawCommand(),
#endif
                                                newCommand(),  catalogCommand(), chordCommand(),
                                                scaleCommand()};
    return all;
}

const Subcommand *findIn(const std::vector<Subcommand> &commands, const QString &name)
{
    const auto found =
        std::find_if(commands.begin(), commands.end(),
                     [&name](const Subcommand &command) { return command.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

const Subcommand &findCommand(const QString &name)
{
    if (const auto *command = findIn(silentCommands(), name))
        return *command;
    if (const auto *command = findIn(audioPart().commands, name))
        return *command;
    QStringList names;
    for (const Subcommand &command : subcommands())
        names.append(command.name);
    throw UsageError{QStringLiteral("\"%1\" is not a command; there are %2")
                         .arg(name, names.join(QStringLiteral(", ")))};
}

int runCommand(const Subcommand &command, const QStringList &words, const Terminal &terminal)
{
    const Arguments arguments(command, words);
    if (arguments.asksForHelp()) {
        say(helpOf(command));
        return Done;
    }
    return command.run(arguments, terminal);
}

int run(const QStringList &words)
{
    if (words.isEmpty()) {
        std::cerr << generalHelp().toStdString();
        return Misused;
    }
    const QString &first = words.first();
    if (first == QStringLiteral("--version")) {
        std::cout << "zarn " ZARN_VERSION "\n";
        return Done;
    }
    if (first == QStringLiteral("--man-page")) {
        say(manualPage());
        return Done;
    }
    if (first == QStringLiteral("--bash-completion")) {
        say(bashCompletion());
        return Done;
    }
    if (first == QStringLiteral("help") || first == QStringLiteral("--help")
        || first == QStringLiteral("-h")) {
        say(words.size() > 1 ? helpOf(findCommand(words.at(1))) : generalHelp());
        return Done;
    }
    return runCommand(findCommand(first), words.mid(1), Terminal::standard());
}

/// Whether everything written to standard output arrived.
bool flushOutput()
{
    std::cout.flush();
    return std::cout.good();
}

} // namespace

const std::vector<Subcommand> &subcommands()
{
    static const std::vector<Subcommand> all = [] {
        std::vector<Subcommand> commands = silentCommands();
        const auto &sounding = audioPart().commands;
        commands.insert(commands.end(), sounding.begin(), sounding.end());
        return commands;
    }();
    return all;
}

int runProgram(int argc, char **argv) noexcept
{
    try {
        qInstallMessageHandler(printLogged);
        QLoggingCategory::setFilterRules(
            QStringLiteral("*.debug=false\n*.info=false\nzarn.core.commands.warning=false"));
        QStringList words;
        for (int i = 1; i < argc; ++i)
            words.append(QString::fromUtf8(argv[i]));
        const int code = run(words);
        if (flushOutput())
            return code;
        std::cerr << "zarn: standard output: not everything could be written\n";
    } catch (const UsageError &error) {
        std::cerr << "zarn: " << error.text.toStdString() << "\nzarn: \"zarn help\" tells more\n";
        return Misused;
    } catch (const std::exception &error) {
        std::cerr << "zarn: " << explain(error) << '\n';
    }
    return Failed;
}

} // namespace zarn::tool
