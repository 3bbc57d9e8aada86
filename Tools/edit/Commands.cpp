// SPDX-License-Identifier: MIT
#include "edit/Commands.h"

namespace zarn::tool {

namespace {

constexpr int UsageWidth = 35;

/// The option with which "zarn new" adds a track.
constexpr const char *TrackOption = "track";

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
        {"Places", placeCommands()},
        {"Notes and beats", noteCommands()},
        {"Ties and slurs", linkCommands()},
        {"Pitches and lengths", pitchCommands()},
        {"How notes are played", noteMarkCommands()},
        {"Marks of beats", beatMarkCommands()},
        {"Fingering", fingeringCommands()},
        {"Chords", chordCommands()},
        {"Lyrics", lyricsCommands()},
        {"Bars", barCommands()},
        {"Copying and arranging", structureCommands()},
        {"Layout", layoutCommands()},
        {"Any attribute", attributeCommands()},
        {"Tracks", trackCommands()},
        {"How tracks play", playingCommands()},
        {"Sounds and recordings", soundCommands()},
        {"Effects and mixer", mixerCommands()},
        {"The score", scoreCommands()},
        {"The session", sessionCommands()},
    };
    return areas;
}

const Command *findCommand(const QString &word)
{
    QString name = word.startsWith(QStringLiteral("--")) ? word.mid(2) : word;
    if (name == QLatin1String(TrackOption))
        name = QStringLiteral("add-track");
    for (const CommandArea &area : commandAreas())
        for (const Command &command : area.commands)
            if (command.name == name)
                return &command;
    return nullptr;
}

QString usageOf(const Command &command)
{
    QString usage = usageWithoutWhere(command);
    for (const Parameter &option : command.options)
        usage += QStringLiteral(" [--%1 %2]").arg(option.name.toLower(), option.name);
    return usage + (command.takesWhere ? QStringLiteral(" [tN] [sN] [vN]") : QString());
}

QString helpText()
{
    QString text = QStringLiteral(
        "One command per line. Bars, beats, tracks, staves and voices are counted from 1, and\n"
        "string 1 is the highest; 3:2 is the second beat of bar 3. Pitches are named as they\n"
        "sound, C4 being middle C; drums by name, such as kick, snare or hihat. Notes go into\n"
        "the track, staff and voice of the cursor or of \"use\", at first all 1, unless t2, s1 or\n"
        "v2 at the end of the line say otherwise. What stands in [brackets] may be left out:\n"
        "commands then act on what is selected, else where the cursor is.\n"
        "\n"
        "MUSIC is a text in quotes, such as \"6:0e 6:3 [5:2 4:2]q. r & 6:0w | c#3q~ c#3\": string\n"
        "and fret or a note, then w h q e s t x for its length, with dots and /3 for a triplet,\n"
        "which holds until the next one; [chords], r for rests, 6:x for dead notes, ~ for ties,\n"
        "& before another voice, | between bars.\n"
        "\n"
        "# begins a comment, \"quotes\" keep words together, \"help COMMAND\" tells more. The\n"
        "options of \"zarn new\" are understood too: --track drums, --strings 7, --title Blues.\n");
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
    for (const Parameter &option : command.options)
        text += QStringLiteral("  --%1: %2\n").arg(option.name.toLower(), expectation(option));
    if (command.takesWhere)
        text += QStringLiteral("  tN, sN, vN: track, staff and voice, such as t2 v1\n");
    if (!command.entryPoint.isEmpty())
        text += QStringLiteral("  calls %1\n").arg(command.entryPoint);
    return text;
}

} // namespace zarn::tool
