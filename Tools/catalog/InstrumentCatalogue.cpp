// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Texts.h"
#include "common/TrackText.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <QJsonArray>

namespace zarn::tool {

namespace {

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

/// "stringed": the group that a category is a member of.
QString familyOf(InstrumentSet::Type type)
{
    constexpr std::uint32_t memberMask = 0xFF;
    return text(InstrumentSet::typeToString(static_cast<InstrumentSet::Type>(type & ~memberMask)));
}

QString countText(std::size_t count)
{
    return count == 0 ? QString() : QString::number(count);
}

QStringList headsOf(const InstrumentArticulation &articulation)
{
    QStringList heads;
    for (unsigned i = 0; i < InstrumentArticulation::headCount; ++i) {
        const QString head = text(articulation.notehead(i).name());
        if (!heads.contains(head))
            heads.append(head);
    }
    return heads;
}

QString techniqueOf(const InstrumentArticulation &articulation)
{
    const QString symbol = text(articulation.techniqueSymbol().name());
    return symbol.isEmpty() ? QString()
                            : symbol + QLatin1Char(' ')
            + text(InstrumentArticulation::stringFromTechniquePlacement(
                articulation.techniquePlacement()));
}

QStringList soundOf(const InstrumentArticulation &articulation)
{
    QStringList sound;
    for (const std::string &component : articulation.outputOrkaSound())
        sound.append(text(component));
    return sound;
}

QJsonObject objectOf(const InstrumentArticulation &articulation)
{
    QJsonArray inputs;
    for (const int key : articulation.inputMidiNumbers())
        inputs.append(key);
    return {{QStringLiteral("element"), text(articulation.element().name())},
            {QStringLiteral("name"), text(articulation.name())},
            {QStringLiteral("staffLine"), articulation.staffLine()},
            {QStringLiteral("noteheads"), QJsonArray::fromStringList(headsOf(articulation))},
            {QStringLiteral("technique"), techniqueOf(articulation)},
            {QStringLiteral("inputs"), inputs},
            {QStringLiteral("output"), articulation.outputMidiNumber()},
            {QStringLiteral("sound"), soundOf(articulation).join(QLatin1Char('.'))}};
}

CatalogueEntry entryOf(const InstrumentSet &set)
{
    const QString category = text(InstrumentSet::typeToString(set.type()));
    const Track track(set.type());
    QJsonArray articulations;
    for (const InstrumentArticulation &articulation : set.articulations())
        articulations.append(objectOf(articulation));
    CatalogueEntry entry;
    entry.key = category;
    entry.cells = QStringList{category,
                              text(set.name()),
                              familyOf(set.type()),
                              QString::number(track.staffCount()),
                              QString::number(set.lineCount()),
                              countText(set.isUnpitched() ? set.elements().size() : 0),
                              countText(set.articulations().size()),
                              tuningText(track, 0, Signs::Letters)};
    entry.properties = {{QStringLiteral("family"), familyOf(set.type())}};
    entry.object = {{QStringLiteral("category"), category},
                    {QStringLiteral("name"), text(set.name())},
                    {QStringLiteral("family"), familyOf(set.type())},
                    {QStringLiteral("staves"), static_cast<int>(track.staffCount())},
                    {QStringLiteral("lines"), static_cast<int>(set.lineCount())},
                    {QStringLiteral("tuning"), tuningText(track, 0, Signs::Letters)},
                    {QStringLiteral("articulations"), articulations}};
    return entry;
}

} // namespace

Catalogue instrumentCatalogue()
{
    Catalogue catalogue;
    catalogue.things = QStringLiteral("instruments");
    catalogue.columns = {{QStringLiteral("Category")},
                         {QStringLiteral("Name")},
                         {QStringLiteral("Family")},
                         {QStringLiteral("Staves"), TextTable::Side::Right},
                         {QStringLiteral("Lines"), TextTable::Side::Right},
                         {QStringLiteral("Elements"), TextTable::Side::Right},
                         {QStringLiteral("Articulations"), TextTable::Side::Right},
                         {QStringLiteral("Tuning")}};
    for (const auto &set : loadedCore().instrumentSetLibrary().instrumentSets())
        catalogue.entries.push_back(entryOf(*set));
    return catalogue;
}

TextTable instrumentDetails(const QString &category)
{
    TextTable table({{QStringLiteral("Element")},
                     {QStringLiteral("Articulation")},
                     {QStringLiteral("Line"), TextTable::Side::Right},
                     {QStringLiteral("Note head")},
                     {QStringLiteral("Technique")},
                     {QStringLiteral("Keys in")},
                     {QStringLiteral("Key out"), TextTable::Side::Right},
                     {QStringLiteral("Sound")}});
    const auto set = loadedCore().instrumentSetLibrary().findInstrumentSetWithType(
        InstrumentSet::typeFromString(category.toStdString()));
    for (const InstrumentArticulation &articulation : set->articulations()) {
        QStringList keys;
        for (const int key : articulation.inputMidiNumbers())
            keys.append(QString::number(key));
        table.addRow({text(articulation.element().name()), text(articulation.name()),
                      QString::number(articulation.staffLine()), headsOf(articulation).first(),
                      techniqueOf(articulation), keys.join(QLatin1Char(' ')),
                      QString::number(articulation.outputMidiNumber()),
                      soundOf(articulation).join(QLatin1Char('.'))});
    }
    return table;
}

} // namespace zarn::tool
