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

LoopEnd runLines(EditSession &session, const std::string &script)
{
    if (script == "-" || (script.empty() && !session.terminal().isInteractive()))
        return runScript(session, std::cin, "standard input");
    if (script.empty())
        return runInteractively(session);
    std::ifstream lines(script);
    if (!lines)
        throw Failure(script + ": " + std::strerror(errno));
    return runScript(session, lines, script);
}

int runEdit(const Arguments &arguments, const Terminal &terminal)
{
    const std::string output = arguments.value(QStringLiteral("output")).toStdString();
    const std::string script = arguments.value(QStringLiteral("script")).toStdString();
    if (!output.empty())
        requireWritableFormat(output);
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    warnOfProblems(document);
    EditSession session(document, output, terminal, std::cout);
    if (runLines(session, script) == LoopEnd::AtError)
        return Failed;
    const bool isTyped = script.empty() && terminal.isInteractive();
    if (!output.empty() && !isTyped)
        session.save(output);
    return session.hasComparedDifferent() ? Failed : Done;
}

} // namespace

Subcommand editCommand()
{
    return {
        QStringLiteral("edit"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Edits a score by commands, from a script, a pipe or the keyboard."),
        QStringLiteral(
            "A wrong line of a script changes nothing, is named with its line and\n"
            "column, and ends the run with exit code 1, with nothing saved. So does, at\n"
            "the end, a \"compare\" that found a difference.\n\n")
            + helpText().trimmed(),
        {{QStringLiteral("script"), QStringLiteral("s"), QStringLiteral("S"),
          QStringLiteral("Read the commands from the file S; - is standard input.")},
         {QStringLiteral("output"), QStringLiteral("o"), QStringLiteral("OUT"),
          QStringLiteral("Save to OUT at the end; by hand: where \"save\" saves to.")}},
        runEdit,
    };
}

} // namespace zarn::tool
