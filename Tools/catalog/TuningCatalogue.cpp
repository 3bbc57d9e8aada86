// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Terminal.h"
#include "common/Texts.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>

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

/// Whether the black keys of a tuning are flats: as in its name, "Eb Standard" or "F# Standard";
/// else unless there is a C# or F# among them, as in "Drop A".
bool hasFlats(const GuitarTuning &tuning)
{
    static const QRegularExpression flatLetter(QStringLiteral("\\b[A-G]b"));
    const QString name = QString::fromStdString(tuning.name());
    if (name.contains(flatLetter))
        return true;
    const auto isSharp = [](int midi) { return midi % 12 == 1 || midi % 12 == 6; };
    const auto &keys = tuning.midiNumbers();
    return !name.contains(QLatin1Char('#')) && std::none_of(keys.begin(), keys.end(), isSharp);
}

CatalogueEntry entryOf(const GuitarTuning &tuning)
{
    const QString name = QString::fromStdString(printable(tuning.name()));
    const QString instrument =
        QString::fromStdString(GuitarTuning::instrumentToString(tuning.instrument()));
    const QString strings = QString::number(tuning.stringCount());
    QStringList notes;
    QJsonArray keys;
    for (const int midi : tuning.midiNumbers()) {
        notes.append(
            pitchText(PitchClass::fromPitch(midi, hasFlats(tuning)), midi, Signs::Letters));
        keys.append(midi);
    }
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
