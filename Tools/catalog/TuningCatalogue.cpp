// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Terminal.h"
#include "common/Texts.h"
#include "common/TuningWord.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QJsonArray>

namespace zarn::tool {

namespace {

QString remarks(const GuitarTuning &tuning)
{
    QStringList remarks;
    if (tuning.hasShortDroneString())
        remarks.append(QStringLiteral("short drone string"));
    if (tuning.role() == GuitarTuning::UserRole)
        remarks.append(QStringLiteral("yours"));
    return remarks.join(QStringLiteral(", "));
}

CatalogueEntry entryOf(const GuitarTuning &tuning)
{
    const QString name = QString::fromStdString(printable(tuning.name()));
    const QString instrument =
        QString::fromStdString(GuitarTuning::instrumentToString(tuning.instrument()));
    const QString strings = QString::number(tuning.stringCount());
    const QStringList notes = openStrings(tuning, Signs::Letters);
    QJsonArray keys;
    for (const int midi : tuning.midiNumbers())
        keys.append(midi);
    CatalogueEntry entry;
    entry.cells =
        QStringList{name, instrument, strings, notes.join(QLatin1Char(' ')), remarks(tuning)};
    entry.properties = {{QStringLiteral("instrument"), instrument},
                        {QStringLiteral("strings"), strings}};
    entry.object = {{QStringLiteral("name"), QString::fromStdString(tuning.name())},
                    {QStringLiteral("instrument"), instrument},
                    {QStringLiteral("notes"), QJsonArray::fromStringList(notes)},
                    {QStringLiteral("midi"), keys},
                    {QStringLiteral("shortDrone"), tuning.hasShortDroneString()},
                    {QStringLiteral("user"), tuning.role() == GuitarTuning::UserRole}};
    return entry;
}

} // namespace

Catalogue tuningCatalogue()
{
    Catalogue catalogue;
    catalogue.things = QStringLiteral("tunings");
    catalogue.columns = {{QStringLiteral("Name")},
                         {QStringLiteral("Instrument")},
                         {QStringLiteral("Strings"), TextTable::Side::Right},
                         {QStringLiteral("Notes")},
                         {QStringLiteral("Remarks")}};
    const GuitarTuningLibrary &library = loadedCore().tuningLibrary();
    for (const auto &tuning : library.getTunings(GuitarTuning::CoreRole | GuitarTuning::UserRole))
        catalogue.entries.push_back(entryOf(*tuning));
    return catalogue;
}

} // namespace zarn::tool
