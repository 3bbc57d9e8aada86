// SPDX-License-Identifier: MIT
#include "edit/EditCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "edit/Commands.h"
#include "edit/EditLoop.h"
#include "edit/EditSession.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

namespace zarn::tool {

namespace {

/// Where the commands of a run come from.
struct CommandSource {
    std::vector<std::string> commands; ///< of the command line
    std::string script;                ///< empty for what is typed or piped in
    bool isTyped = false;

    bool isStandardInput() const
    {
        return commands.empty() && (script.empty() || isStandardStream(script));
    }
};

CommandSource sourceOf(const Arguments &arguments, const Terminal &terminal)
{
    CommandSource source;
    source.commands = arguments.values(QStringLiteral("command"));
    source.script = arguments.value(QStringLiteral("script")).toStdString();
    if (!source.commands.empty() && !source.script.empty())
        throw UsageError{QStringLiteral("--command and --script cannot be given together")};
    source.isTyped = source.commands.empty() && source.script.empty() && terminal.isInteractive();
    return source;
}

LoopEnd runLines(EditSession &session, const CommandSource &source)
{
    if (!source.commands.empty())
        return runCommands(session, source.commands);
    if (source.isTyped)
        return runInteractively(session);
    if (source.isStandardInput())
        return runScript(session, std::cin, "standard input");
    std::ifstream lines(source.script);
    if (!lines)
        throw Failure(source.script + ": " + std::strerror(errno));
    return runScript(session, lines, source.script);
}

OpenedDocument documentOf(const Arguments &arguments, const CommandSource &source,
                          const Terminal &terminal)
{
    if (arguments.operands().isEmpty())
        return newDocument();
    const std::string path = arguments.operand(0);
    if (isStandardStream(path) && source.isStandardInput())
        throw UsageError{QStringLiteral("with - for the score, standard input cannot hold the "
                                        "commands too; give them with --command or --script")};
    OpenedDocument document = openDocument(path, terminal);
    warnOfProblems(document);
    return document;
}

/// Saves what a script did, or tells that it is lost.
int finish(EditSession &session, const std::string &output)
{
    if (!output.empty()) {
        session.save(output);
    } else if (session.hasUnsavedChanges() && !session.hasExported()) {
        session.out().flush();
        std::cerr << "zarn: the changes are lost, they were not saved; say where to with "
                     "--output OUT, or end with \"save\"\n";
        return Failed;
    }
    return session.hasComparedDifferent() ? Failed : Done;
}

int runEdit(const Arguments &arguments, const Terminal &terminal)
{
    const std::string output = arguments.value(QStringLiteral("output")).toStdString();
    if (!output.empty())
        requireWritableFormat(output);
    const CommandSource source = sourceOf(arguments, terminal);
    const OpenedDocument document = documentOf(arguments, source, terminal);
    // The document alone goes to standard output when it is asked for there.
    EditSession session(document, output, terminal,
                        isStandardStream(output) ? std::cerr : std::cout);
    if (runLines(session, source) == LoopEnd::AtError)
        return Failed;
    if (source.isTyped)
        return session.hasComparedDifferent() ? Failed : Done;
    return finish(session, output);
}

} // namespace

Subcommand editCommand()
{
    return {
        QStringLiteral("edit"),
        QStringLiteral("[FILE]"),
        0,
        1,
        QStringLiteral("Edits a score by commands, typed or from a script."),
        QStringLiteral(
            "Without FILE, begins with an empty score of one bar. The commands are typed, or\n"
            "come from -c, a script, or a pipe. A wrong command in a script changes nothing: it "
            "is\n"
            "reported with its line and column, and the run ends there with exit code 1 and\n"
            "nothing saved. Changes that a script neither saved nor gave an --output are lost,\n"
            "which is reported, with exit code 1. So is a \"compare\" that found a difference.\n\n"
            "    zarn edit song.zarn -c \"select all\" -c \"dynamic mf\" -o louder.zarn\n\n")
            + helpText().trimmed(),
        {{QStringLiteral("command"), QStringLiteral("c"), QStringLiteral("COMMAND"),
          QStringLiteral("Do COMMAND; may be given several times.")},
         {QStringLiteral("script"), QStringLiteral("s"), QStringLiteral("S"),
          QStringLiteral("Read the commands from the file S; - is standard input.")},
         {QStringLiteral("output"), QStringLiteral("o"), QStringLiteral("OUT"),
          QStringLiteral("Save to OUT at the end; by hand: where \"save\" saves to.")}},
        runEdit,
    };
}

} // namespace zarn::tool
