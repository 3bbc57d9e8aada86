// SPDX-License-Identifier: MIT
#include "edit/Commands.h"

namespace zarn::tool {

namespace {

constexpr int UsageWidth = 33;

QString usageWithoutWhere(const Command &command)
{
    QString usage = command.name;
    for (const Parameter &parameter : command.parameters) {
        const QString more = takesAllWords(parameter) ? QStringLiteral("...") : QString();
        usage += parameter.presence == Presence::Required
            ? QStringLiteral(" %1%2").arg(parameter.name, more)
            : QStringLiteral(" [%1%2]").arg(parameter.name, more);
    }
    return usage;
}

} // namespace

const std::vector<CommandArea> &commandAreas()
{
    static const std::vector<CommandArea> areas = {
        {"Places", placeCommands()},    {"Notes and beats", noteCommands()},
        {"Bars", barCommands()},        {"Tracks", trackCommands()},
        {"The score", scoreCommands()}, {"The session", sessionCommands()},
    };
    return areas;
}

const Command *findCommand(const QString &name)
{
    for (const CommandArea &area : commandAreas())
        for (const Command &command : area.commands)
            if (command.name == name)
                return &command;
    return nullptr;
}

QString usageOf(const Command &command)
{
    return usageWithoutWhere(command)
        + (command.takesWhere ? QStringLiteral(" [tN] [sN] [vN]") : QString());
}

QString helpText()
{
    QString text = QStringLiteral(
        "One command per line. Bars, beats, tracks, staves and voices are counted from 1, string "
        "1\n"
        "is the highest. 3:2 is the second beat of bar 3. Notes are edited in the track, staff "
        "and\n"
        "voice of the cursor (at first all 1), unless t2, s1, v2 at the end of the line say\n"
        "otherwise. Bars and beats in [brackets] may be left out: then commands act on what is\n"
        "selected, or where the cursor is.\n"
        "# begins a comment; \"quotes\" keep words together. \"help COMMAND\" tells more.\n");
    for (const CommandArea &area : commandAreas()) {
        text += QStringLiteral("\n%1\n").arg(QLatin1String(area.title));
        for (const Command &command : area.commands) {
            text += QStringLiteral("  %1 %2\n")
                        .arg(usageWithoutWhere(command).leftJustified(UsageWidth), command.help);
        }
    }
    return text;
}

QString helpText(const Command &command)
{
    QString text = QStringLiteral("%1\n  %2\n").arg(usageOf(command), command.help);
    for (const Parameter &parameter : command.parameters) {
        text += QStringLiteral("  %1: %2\n").arg(parameter.name, expectation(parameter));
        if (const QString assumed = assumption(parameter); !assumed.isEmpty())
            text += QStringLiteral("    left out: %1\n").arg(assumed);
    }
    if (command.takesWhere)
        text += QStringLiteral("  tN, sN, vN: track, staff and voice, such as t2 v1\n");
    if (!command.entryPoint.isEmpty())
        text += QStringLiteral("  calls %1\n").arg(command.entryPoint);
    return text;
}

} // namespace zarn::tool
