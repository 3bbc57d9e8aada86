// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/Terminal.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/EventPrinter.h"
#include "edit/Targets.h"
#include "info/ScoreSummary.h"
#include "show/ShowCommand.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <ostream>

namespace zarn::tool {

namespace {

void requireNoGroup(const EditSession &session)
{
    if (session.openGroups() > 0)
        throw Failure("a group is open; commit or abandon it first");
}

/// "3" or "all"; 1 when nothing was typed.
std::uint32_t steps(const Values &values, std::uint32_t available, const char *verb)
{
    const QString text = values.get<QString>(0, QStringLiteral("1"));
    if (text == QStringLiteral("all"))
        return available;
    bool isNumber = false;
    const std::uint32_t count = text.toUInt(&isNumber);
    if (!isNumber || count == 0)
        throw Failure("\"" + text.toStdString() + "\" is not a number of steps; type " + verb
                      + " 3 or " + verb + " all");
    if (available == 0)
        throw Failure(std::string("there is nothing to ") + verb);
    if (count > available)
        throw Failure("there " + std::string(available == 1 ? "is" : "are") + " only "
                      + counted(available, "step") + " to " + verb);
    return count;
}

bool undo(EditSession &session, const Values &values)
{
    requireNoGroup(session);
    CommandStack &stack = session.score().commandStack();
    const std::uint32_t count = steps(values, stack.undoCommandList().size(), "undo");
    for (std::uint32_t i = 0; i < count; ++i)
        stack.undo();
    session.out() << "Undid " << counted(count, "step") << ".\n";
    return true;
}

bool redo(EditSession &session, const Values &values)
{
    requireNoGroup(session);
    CommandStack &stack = session.score().commandStack();
    const std::uint32_t count = steps(values, stack.redoCount(), "redo");
    for (std::uint32_t i = 0; i < count; ++i)
        stack.redo();
    session.out() << "Redid " << counted(count, "step") << ".\n";
    return true;
}

bool begin(EditSession &session, const Values &values)
{
    session.beginGroup(values.get(0, QString()));
    return true;
}

bool commit(EditSession &session, const Values &)
{
    session.commitGroup();
    return true;
}

bool abandon(EditSession &session, const Values &)
{
    session.abandonGroup();
    return true;
}

void listSteps(std::ostream &out, const char *title, const QStringList &names,
               const QStringList &arguments)
{
    out << title << ": " << counted(static_cast<std::size_t>(names.size()), "step") << '\n';
    for (int i = 0; i < names.size(); ++i) {
        out << "  " << i + 1 << ' '
            << printable((names.at(i) + QLatin1Char(' ') + arguments.at(i)).toStdString()) << '\n';
    }
}

bool history(EditSession &session, const Values &)
{
    const CommandStack &stack = session.score().commandStack();
    listSteps(session.out(), "To undo, newest first", stack.undoCommandList(), stack.undoArgList());
    listSteps(session.out(), "To redo, next first", stack.redoCommandList(), stack.redoArgList());
    if (session.openGroups() > 0)
        session.out() << "Open: " << counted(session.openGroups(), "group") << '\n';
    return true;
}

bool events(EditSession &session, const Values &values)
{
    session.printEvents(
        static_cast<EventDetail>(values.get(0, static_cast<int>(EventDetail::Brief))));
    return true;
}

bool echo(EditSession &session, const Values &values)
{
    session.setEchoes(values.get(0, true));
    return true;
}

bool show(EditSession &session, const Values &values)
{
    const unsigned count = session.model().masterTrack()->masterBarCount();
    const BarRange bars = values.get(0, BarRange{0, count == 0 ? 0 : count - 1});
    ShownPart part;
    part.firstBar = bars.first;
    part.lastBar = bars.last;
    if (values.has(1))
        part.track = static_cast<unsigned>(values.get<int>(1));
    session.out() << pictureOf(session.model(), part, session.terminal());
    return true;
}

bool info(EditSession &session, const Values &)
{
    session.out() << summaryOf(session.model(), session.terminal().width());
    return true;
}

bool help(EditSession &session, const Values &values)
{
    if (!values.has(0)) {
        session.out() << helpText().toStdString();
        return true;
    }
    const Command *const command = findCommand(values.get<QString>(0));
    if (command == nullptr)
        throw Failure("\"" + values.text(0) + "\" is not a command; \"help\" lists them");
    session.out() << helpText(*command).toStdString();
    return true;
}

bool use(EditSession &session, const Values &values)
{
    session.setWhere(values.where());
    const Where &where = session.where();
    session.out() << "From now on in track " << where.track + 1 << ", staff " << where.staff + 1
                  << ", voice " << where.voice + 1 << ".\n";
    return true;
}

bool save(EditSession &session, const Values &values)
{
    requireNoGroup(session);
    session.save(values.text(0));
    return true;
}

bool compare(EditSession &session, const Values &)
{
    session.compare();
    return true;
}

bool quit(EditSession &session, const Values &)
{
    session.quit();
    return true;
}

} // namespace

const std::vector<Command> &sessionCommands()
{
    const auto optional = [](const char *name, Kind kind) {
        return Parameter{QLatin1String(name), kind, Presence::Optional};
    };
    static const Choices eventChoices = {
        {QStringLiteral("on"), static_cast<int>(EventDetail::Brief)},
        {QStringLiteral("off"), static_cast<int>(EventDetail::None)},
        {QStringLiteral("all"), static_cast<int>(EventDetail::All)},
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("undo"),
         {optional("COUNT", Kind::Text)},
         QStringLiteral("Undo one step, several, or all."),
         QStringLiteral("CommandStack::undo"),
         undo},
        {QStringLiteral("redo"),
         {optional("COUNT", Kind::Text)},
         QStringLiteral("Redo one step, several, or all."),
         QStringLiteral("CommandStack::redo"),
         redo},
        {QStringLiteral("begin"),
         {optional("NAME", Kind::Text)},
         QStringLiteral("Begin a group: all up to its commit is one step to undo."),
         QStringLiteral("Transaction"),
         begin},
        {QStringLiteral("commit"),
         {},
         QStringLiteral("End the innermost group and keep what it did."),
         QStringLiteral("Transaction::commit"),
         commit},
        {QStringLiteral("abandon"),
         {},
         QStringLiteral("End the innermost group and undo what it did."),
         QStringLiteral("Transaction"),
         abandon},
        {QStringLiteral("history"),
         {},
         QStringLiteral("List the steps that can be undone and redone."),
         QStringLiteral("CommandStack::undoCommandList"),
         history},
        {QStringLiteral("events"),
         {{QStringLiteral("WHICH"), Kind::Choice, Presence::Assumed, 0, 0, &eventChoices}},
         QStringLiteral("Print what each step announces: in a line, or all events as they come."),
         QStringLiteral("Score::connect"),
         events},
        {QStringLiteral("echo"),
         {{QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed}},
         QStringLiteral("Print every line before it is done."),
         QString(),
         echo},
        {QStringLiteral("use"),
         {},
         QStringLiteral("Work in another track, staff or voice from now on, such as use t2."),
         QString(),
         use,
         true},
        {QStringLiteral("show"),
         {optional("BARS", Kind::Bars), optional("TRACK", Kind::Track)},
         QStringLiteral("Show the music."),
         QString(),
         show},
        {QStringLiteral("info"), {}, QStringLiteral("Tell what the score holds."), QString(), info},
        {QStringLiteral("compare"),
         {},
         QStringLiteral("Tell whether the score is what it was when it was opened."),
         QString(),
         compare},
        {QStringLiteral("save"),
         {optional("FILE", Kind::Text)},
         QStringLiteral("Save the score, by the suffix of the file."),
         QString(),
         save},
        {QStringLiteral("help"),
         {optional("COMMAND", Kind::Text)},
         QStringLiteral("List the commands, or tell about one."),
         QString(),
         help},
        {QStringLiteral("quit"), {}, QStringLiteral("Leave."), QString(), quit},
        {QStringLiteral("exit"), {}, QStringLiteral("The same as quit."), QString(), quit},
    };
    return commands;
}

} // namespace zarn::tool
