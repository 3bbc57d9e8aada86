// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Choices.h"
#include "common/Texts.h"
#include "common/TrackText.h"

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>

namespace zarn::tool {

namespace {

QString clefName(ClefType clef)
{
    for (const auto &[word, value] : clefChoices())
        if (value == static_cast<int>(clef))
            return word;
    return QString();
}

/// "treble, bass": of each staff, as it starts.
QString clefsOf(const Track &track)
{
    QStringList clefs;
    for (unsigned staff = 0; staff < track.staffCount(); ++staff)
        clefs.append(clefName(defaultClef(track.type(), staff)));
    return clefs.join(QStringLiteral(", "));
}

CatalogueEntry entryOf(const TrackTemplate &made)
{
    const bool isProgram = made.kind == TrackTemplate::Kind::Program;
    const Track &track = *made.track;
    const int number = static_cast<int>(made.number) + (isProgram ? 1 : 0);
    const QString category = QString::fromStdString(InstrumentSet::typeToString(track.type()));
    const QString tuning = tuningText(track, 0, Signs::Letters);
    CatalogueEntry entry;
    entry.cells =
        QStringList{made.name,
                    isProgram ? QString::number(number) : QStringLiteral("key %1").arg(number),
                    made.family,
                    category,
                    clefsOf(track),
                    tuning,
                    transpositionText(track.transpositionOffset())};
    entry.properties = {{QStringLiteral("family"), made.family},
                        {QStringLiteral("instrument"), category}};
    entry.object = {{isProgram ? QStringLiteral("program") : QStringLiteral("key"), number},
                    {QStringLiteral("name"), made.name},
                    {QStringLiteral("family"), made.family},
                    {QStringLiteral("category"), category},
                    {QStringLiteral("clefs"), clefsOf(track)},
                    {QStringLiteral("tuning"), tuning},
                    {QStringLiteral("transposition"), track.transpositionOffset()}};
    return entry;
}

} // namespace

Catalogue programCatalogue()
{
    Catalogue catalogue;
    catalogue.things = QStringLiteral("programs");
    catalogue.columns = {{QStringLiteral("Name")},      {QStringLiteral("Program")},
                         {QStringLiteral("Family")},    {QStringLiteral("Category")},
                         {QStringLiteral("Clefs")},     {QStringLiteral("Tuning")},
                         {QStringLiteral("Transposes")}};
    catalogue.columns[1].side = TextTable::Side::Right;
    for (const TrackTemplate &made : trackTemplates())
        catalogue.entries.push_back(entryOf(made));
    return catalogue;
}

} // namespace zarn::tool
