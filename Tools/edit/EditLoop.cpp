// SPDX-License-Identifier: MIT
#include "edit/EditLoop.h"

#include "common/Failure.h"
#include "common/Terminal.h"
#include "edit/CommandReader.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/LineEditor.h"
#include "edit/ScriptLine.h"

#include <iostream>

namespace zarn::tool {

namespace {

/// Does one line. Raises `LineError` for whatever is wrong with it; the score is then as before.
void runLine(EditSession &session, const std::string &text)
{
    const QString line = QString::fromUtf8(text.c_str(), static_cast<int>(text.size()));
    const ReadingContext context = {&session.model(), session.where(),
                                    session.score().scoreCursor().isValid(),
                                    session.selection().has_value()};
    if (session.echoes() && !line.trimmed().isEmpty())
        session.out() << "zarn> " << printable(text) << '\n';
    const auto read = readLine(line, context);
    if (!read)
        return;
    try {
        if (read->command->run(session, read->values))
            return;
    } catch (const LineError &) {
        throw;
    } catch (const std::exception &error) {
        throw LineError(read->column, QString::fromStdString(explain(error)));
    }
    throw LineError(read->column,
                    QStringLiteral("%1 cannot be done here").arg(read->command->name));
}

void print(const LineError &error, const std::string &place)
{
    std::cout.flush();
    std::cerr << "zarn: " << place << "column " << error.column() << ": " << printable(error.what())
              << '\n';
}

/// Does a line of a script; tells what is wrong with it, and where.
bool runOrPrint(EditSession &session, const std::string &line, const std::string &place)
{
    try {
        runLine(session, line);
        return true;
    } catch (const LineError &error) {
        print(error, place + ", ");
        return false;
    }
}

LoopEnd endOfLines(const EditSession &session, const std::string &place)
{
    if (session.openGroups() == 0)
        return LoopEnd::AtEnd;
    std::cerr << "zarn: " << place << ": a group is still open; end it with commit or abandon\n";
    return LoopEnd::AtError;
}

enum class Answer { Save, Discard, Stay };

Answer askAboutChanges(LineEditor &editor)
{
    for (;;) {
        const auto text = editor.read("Save the changes? yes, no or stay: ");
        if (!text || *text == "no" || *text == "n")
            return Answer::Discard;
        if (*text == "yes" || *text == "y")
            return Answer::Save;
        if (*text == "stay" || *text == "s")
            return Answer::Stay;
    }
}

/// Whether the session may end now.
bool mayLeave(EditSession &session, LineEditor &editor)
{
    if (session.openGroups() > 0) {
        std::cerr << "zarn: a group is still open; commit or abandon it first\n";
        return false;
    }
    if (!session.hasUnsavedChanges())
        return true;
    switch (askAboutChanges(editor)) {
    case Answer::Stay:
        return false;
    case Answer::Discard:
        return true;
    case Answer::Save:
        break;
    }
    std::string path;
    if (session.defaultPath().empty())
        path = editor.read("File to save to: ").value_or(std::string());
    try {
        session.save(path);
        return true;
    } catch (const std::exception &error) {
        std::cerr << "zarn: " << explain(error) << '\n';
        return false;
    }
}

std::string promptOf(const EditSession &session)
{
    return std::string(session.openGroups(), '+') + "zarn> ";
}

} // namespace

LoopEnd runScript(EditSession &session, std::istream &lines, const std::string &name)
{
    std::string line;
    unsigned number = 0;
    while (!session.isOver() && std::getline(lines, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!runOrPrint(session, line, name + ": line " + std::to_string(number)))
            return LoopEnd::AtError;
    }
    if (lines.bad()) {
        std::cerr << "zarn: " << name << ": cannot be read to its end\n";
        return LoopEnd::AtError;
    }
    return endOfLines(session, name + ": line " + std::to_string(number));
}

LoopEnd runCommands(EditSession &session, const std::vector<std::string> &commands)
{
    unsigned number = 0;
    for (const std::string &command : commands) {
        ++number;
        if (session.isOver())
            break;
        if (!runOrPrint(session, command, "command " + std::to_string(number)))
            return LoopEnd::AtError;
    }
    return endOfLines(session, "command " + std::to_string(number));
}

LoopEnd runInteractively(EditSession &session)
{
    LineEditor editor(completions);
    session.out() << "Type \"help\" for the commands, \"quit\" to leave.\n" << std::flush;
    for (;;) {
        const auto line = editor.read(promptOf(session));
        if (!line) {
            session.out() << '\n';
            session.quit();
        }
        try {
            if (line)
                runLine(session, *line);
        } catch (const LineError &error) {
            print(error, std::string());
        }
        session.out() << std::flush;
        if (session.isOver() && (mayLeave(session, editor) || !line))
            return LoopEnd::AtEnd;
        session.stay();
    }
}

} // namespace zarn::tool
