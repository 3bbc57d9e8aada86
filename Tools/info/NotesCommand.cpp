// SPDX-License-Identifier: MIT
#include "info/NotesCommand.h"

#include "common/Documents.h"
#include "common/Terminal.h"

#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <iostream>

namespace zarn::tool {

namespace {

int runNotes(const Arguments &arguments, const Terminal &terminal)
{
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    std::cout << io::noteListHeading() << '\n';
    for (const io::ListedNote &note : io::listNotes(*document.model))
        std::cout << note.toString() << '\n';
    return Done;
}

} // namespace

Subcommand notesCommand()
{
    return {
        QStringLiteral("notes"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Lists every note on a line of tab-separated values."),
        QStringLiteral(
            "The first line names the columns. Tracks, bars, staves, voices and strings are\n"
            "counted from 0, string 0 being the lowest; onset (from the start of the bar) and\n"
            "length are exact fractions of a quarter. midi is the key as written, sounding the\n"
            "key that is heard; percussion has only the latter. - means that there is none.\n"
            "Flags: g grace note, c one more note of a chord, t tied to the note before,\n"
            "h hidden. finger is the one of the left hand, 1 to 4, T the thumb, 0 an open\n"
            "string; pluck the one of the right hand, p i m a c."),
        {},
        runNotes,
    };
}

} // namespace zarn::tool
