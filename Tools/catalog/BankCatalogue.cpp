// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Terminal.h"
#include "common/Texts.h"

#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QJsonArray>

#include <algorithm>

namespace zarn::tool {

namespace {

/// Banks may come from outside.
QString text(const std::string &utf8)
{
    return QString::fromStdString(printable(utf8));
}

QString keyName(int key)
{
    return pitchText(spelledInKey(Tone(key), 0), key, Signs::Letters);
}

QString rangeText(const RegionRange &range, QString (*name)(int))
{
    const QString first = name(range.first);
    return range.first == range.last ? first : first + QStringLiteral(" - ") + name(range.last);
}

QString plainNumber(int number)
{
    return QString::number(number);
}

/// Empty for what changes nothing.
QString unlessZero(double number)
{
    return number == 0 ? QString() : QString::number(number);
}

/// From the lowest to the highest key that sounds.
QString keysText(const HVSoundFont &bank)
{
    const auto &regions = bank.regions();
    if (regions.empty())
        return {};
    RegionRange keys = regions.front().keys;
    for (const auto &region : regions)
        keys = {std::min(keys.first, region.keys.first), std::max(keys.last, region.keys.last)};
    return rangeText(keys, keyName);
}

QJsonObject objectOf(const SoundbankRegion &region)
{
    QJsonObject object{
        {QStringLiteral("sample"), text(region.sample)},
        {QStringLiteral("keys"), QJsonArray{region.keys.first, region.keys.last}},
        {QStringLiteral("velocities"), QJsonArray{region.velocities.first, region.velocities.last}},
        {QStringLiteral("rootKey"), region.rootKey},
        {QStringLiteral("tune"), region.tune},
        {QStringLiteral("gain"), region.gain},
        {QStringLiteral("pan"), region.pan},
        {QStringLiteral("release"), region.release},
        {QStringLiteral("oneShot"), region.isOneShot},
        {QStringLiteral("roundRobin"), region.roundRobin},
        {QStringLiteral("chokeGroup"), region.chokeGroup}};
    if (region.loop)
        object.insert(QStringLiteral("loop"),
                      QJsonObject{{QStringLiteral("start"), double(region.loop->start)},
                                  {QStringLiteral("end"), double(region.loop->end)}});
    return object;
}

CatalogueEntry entryOf(const Soundbank &bank)
{
    const HVSoundFont &font = *bank.soundfont();
    QJsonArray samples;
    for (const auto &sample : font.samples())
        samples.append(text(sample));
    QJsonArray regions;
    for (const auto &region : font.regions())
        regions.append(objectOf(region));
    const auto count = [](std::size_t number) {
        return number == 0 ? QString() : QString::number(number);
    };
    CatalogueEntry entry;
    entry.key = text(bank.id());
    entry.cells = QStringList{entry.key,
                              text(bank.name()),
                              text(bank.instrument()),
                              count(font.samples().size()),
                              count(font.regions().size()),
                              keysText(font),
                              bank.isUsable() ? QStringLiteral("yes") : QStringLiteral("no")};
    entry.properties = {{QStringLiteral("instrument"), text(bank.instrument())}};
    entry.object = {{QStringLiteral("id"), entry.key},
                    {QStringLiteral("name"), text(bank.name())},
                    {QStringLiteral("description"), text(bank.description())},
                    {QStringLiteral("instrument"), text(bank.instrument())},
                    {QStringLiteral("velocity"), bank.velocity()},
                    {QStringLiteral("file"), text(font.path())},
                    {QStringLiteral("samples"), samples},
                    {QStringLiteral("regions"), regions},
                    {QStringLiteral("usable"), bank.isUsable()}};
    return entry;
}

} // namespace

Catalogue bankCatalogue()
{
    using Side = TextTable::Side;
    Catalogue catalogue;
    catalogue.things = QStringLiteral("banks");
    catalogue.columns = {{QStringLiteral("Id")},
                         {QStringLiteral("Name")},
                         {QStringLiteral("Instrument")},
                         {QStringLiteral("Samples"), Side::Right},
                         {QStringLiteral("Regions"), Side::Right},
                         {QStringLiteral("Keys")},
                         {QStringLiteral("Usable")}};
    for (const auto &[id, bank] : loadedCore().soundbanks())
        catalogue.entries.push_back(entryOf(*bank));
    std::sort(catalogue.entries.begin(), catalogue.entries.end(),
              [](const auto &left, const auto &right) { return left.key < right.key; });
    return catalogue;
}

TextTable bankDetails(const QString &id)
{
    using Side = TextTable::Side;
    TextTable table({{QStringLiteral("Sample")},
                     {QStringLiteral("Keys")},
                     {QStringLiteral("Velocities")},
                     {QStringLiteral("Root")},
                     {QStringLiteral("Loop")},
                     {QStringLiteral("Cents"), Side::Right},
                     {QStringLiteral("Gain dB"), Side::Right},
                     {QStringLiteral("Pan"), Side::Right},
                     {QStringLiteral("Release"), Side::Right},
                     {QStringLiteral("Turns")},
                     {QStringLiteral("Choke")}});
    const auto bank = loadedCore().findSoundbank(id.toStdString());
    for (const auto &region : bank->soundfont()->regions()) {
        const QString loop = region.loop
            ? QStringLiteral("%1 - %2").arg(region.loop->start).arg(region.loop->end)
            : QString();
        table.addRow({text(region.sample), rangeText(region.keys, keyName),
                      rangeText(region.velocities, plainNumber), keyName(region.rootKey), loop,
                      unlessZero(region.tune), unlessZero(region.gain), unlessZero(region.pan),
                      region.isOneShot ? QStringLiteral("whole")
                                       : QStringLiteral("%1 s").arg(region.release),
                      unlessZero(region.roundRobin), unlessZero(region.chokeGroup)});
    }
    return table;
}

} // namespace zarn::tool
