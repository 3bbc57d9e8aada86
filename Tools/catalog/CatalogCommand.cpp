// SPDX-License-Identifier: MIT
#include "catalog/CatalogCommand.h"

#include "audio/AudioPart.h"
#include "catalog/Catalogue.h"
#include "common/Failure.h"
#include "common/NearestWord.h"
#include "common/Terminal.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

struct Kind {
    const char *name;
    Catalogue (*make)();
    TextTable (*details)(const QString &); ///< of a single entry; null for none
};

Catalogue fontCatalogue()
{
    return audioPart().fonts();
}

constexpr Kind Kinds[] = {
    {"tunings", tuningCatalogue, nullptr}, {"instruments", instrumentCatalogue, instrumentDetails},
    {"gm", programCatalogue, nullptr},     {"patches", patchCatalogue, patchDetails},
    {"banks", bankCatalogue, bankDetails}, {"fonts", fontCatalogue, nullptr},
};

const char *const PropertyOptions[] = {"instrument", "strings", "family"};

const Kind &kindOf(const QString &name)
{
    QStringList names;
    for (const Kind &kind : Kinds) {
        if (name == QLatin1String(kind.name))
            return kind;
        names.append(QLatin1String(kind.name));
    }
    const QString nearest = nearestWord(name, names);
    throw UsageError{QStringLiteral("\"%1\" is not a catalogue; %2")
                         .arg(name,
                              nearest.isEmpty()
                                  ? QStringLiteral("there are ") + names.join(QStringLiteral(", "))
                                  : QStringLiteral("did you mean \"%1\"?").arg(nearest))};
}

CatalogueSearch searchOf(const Arguments &arguments)
{
    CatalogueSearch search;
    for (const char *const option : PropertyOptions)
        if (arguments.has(QLatin1String(option)))
            search.properties[QLatin1String(option)] = arguments.value(QLatin1String(option));
    search.name = arguments.value(QStringLiteral("name"));
    search.words = arguments.operands().mid(1);
    return search;
}

void printJson(const Catalogue &catalogue)
{
    QJsonArray all;
    for (const CatalogueEntry &entry : catalogue.entries)
        all.append(entry.object);
    std::cout << QJsonDocument(all).toJson().toStdString();
}

int runCatalog(const Arguments &arguments, const Terminal &terminal)
{
    const Kind &kind = kindOf(arguments.operands().first());
    Catalogue catalogue = kind.make();
    const CatalogueSearch search = searchOf(arguments);
    narrow(catalogue, search);
    if (arguments.has(QStringLiteral("json"))) {
        printJson(catalogue);
        return Done;
    }
    TextTable table(catalogue.columns);
    for (const CatalogueEntry &entry : catalogue.entries)
        table.addRow(entry.cells);
    std::cout << table.text(terminal);
    const CatalogueEntry &first = catalogue.entries.front();
    if (kind.details != nullptr && catalogue.entries.size() == 1
        && search.words.contains(first.key, Qt::CaseInsensitive))
        std::cout << '\n' << kind.details(first.key).text(terminal);
    return Done;
}

} // namespace

Subcommand catalogCommand()
{
    return {
        QStringLiteral("catalog"),
        QStringLiteral("WHAT [WORD...]"),
        1,
        -1,
        QStringLiteral("Lists the tunings, instruments and sounds that the library knows."),
        QStringLiteral(
            "WHAT is one of\n"
            "  tunings      of fretted and bowed instruments, your own included\n"
            "  instruments  the categories of tracks; with a category, such as drumKit, also\n"
            "               its articulations, each with the note head of a quarter\n"
            "  gm           the General MIDI programs, counted from 1, and percussion keys,\n"
            "               from which \"zarn new\" makes tracks\n"
            "  patches      the sounds; with the id of one also the sound banks that it needs\n"
            "  banks        the sound banks, your own included; with the id of one also its\n"
            "               regions: which notes play which samples\n"
            "  fonts        the sound fonts (SF2, SF3) of the usual folders and of the variable\n"
            "               ZARN_SOUNDFONT\n"
            "WORDs and options narrow the list to what matches them all, in upper or lower case.\n"
            "Strings are listed from the lowest on, C4 is middle C, and staff lines count half\n"
            "spaces up from the bottom line. With --json, prints an array of objects."),
        {{QStringLiteral("instrument"), QStringLiteral("i"), QStringLiteral("I"),
          QStringLiteral("Tunings of an instrument; sounds of a category.")},
         {QStringLiteral("strings"), QStringLiteral("s"), QStringLiteral("N"),
          QStringLiteral("Tunings of N strings.")},
         {QStringLiteral("family"), QStringLiteral("f"), QStringLiteral("F"),
          QStringLiteral("Instruments and programs of a family.")},
         {QStringLiteral("name"), QStringLiteral("n"), QStringLiteral("TEXT"),
          QStringLiteral("Only what has TEXT in the first column.")},
         {QStringLiteral("json"), QStringLiteral("j"), QString(),
          QStringLiteral("Print JSON for programs.")}},
        runCatalog,
    };
}

} // namespace zarn::tool
