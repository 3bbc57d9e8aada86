// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/BuiltIns.h"
#include "common/Terminal.h"

#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>

#include <QJsonArray>

#include <algorithm>

namespace zarn::tool {

namespace {

/// Patches may come from outside.
QString text(const std::string &utf8)
{
    return QString::fromStdString(printable(utf8));
}

QString yesOrNo(bool is)
{
    return is ? QStringLiteral("yes") : QStringLiteral("no");
}

CatalogueEntry entryOf(const SoundbankPatch &patch)
{
    QJsonArray banks;
    QStringList names;
    for (const auto &[element, bank] : patch.soundbanks()) {
        banks.append(QJsonObject{{QStringLiteral("element"), text(element)},
                                 {QStringLiteral("soundbank"), text(bank)}});
        if (!names.contains(text(bank)))
            names.append(text(bank));
    }
    CatalogueEntry entry;
    entry.key = text(patch.id());
    entry.cells = QStringList{entry.key, text(patch.name()), text(patch.instrumentSetName()),
                              names.size() == 1 ? names.first()
                                                : QStringLiteral("%1 banks").arg(names.size()),
                              yesOrNo(patch.installed())};
    entry.properties = {{QStringLiteral("instrument"), text(patch.instrumentSetName())}};
    entry.object = {{QStringLiteral("id"), entry.key},
                    {QStringLiteral("name"), text(patch.name())},
                    {QStringLiteral("description"), text(patch.description())},
                    {QStringLiteral("category"), text(patch.instrumentSetName())},
                    {QStringLiteral("soundbanks"), banks},
                    {QStringLiteral("installed"), patch.installed()}};
    return entry;
}

} // namespace

Catalogue patchCatalogue()
{
    Catalogue catalogue;
    catalogue.things = QStringLiteral("patches");
    catalogue.columns = {{QStringLiteral("Id")},
                         {QStringLiteral("Name")},
                         {QStringLiteral("Category")},
                         {QStringLiteral("Banks")},
                         {QStringLiteral("Installed")}};
    for (const auto &[id, patch] : loadedCore().soundbankPatches())
        catalogue.entries.push_back(entryOf(*patch));
    std::sort(catalogue.entries.begin(), catalogue.entries.end(),
              [](const auto &left, const auto &right) { return left.key < right.key; });
    return catalogue;
}

TextTable patchDetails(const QString &id)
{
    TextTable table({{QStringLiteral("Element")},
                     {QStringLiteral("Bank")},
                     {QStringLiteral("Name")},
                     {QStringLiteral("Velocity")},
                     {QStringLiteral("Usable")}});
    const Core &core = loadedCore();
    for (const auto &[element, bankId] :
         core.soundbankPatches().at(id.toStdString())->soundbanks()) {
        const auto bank = core.findSoundbank(bankId);
        table.addRow({text(element), text(bankId), bank ? text(bank->name()) : QString(),
                      bank ? bank->velocityString() : QString(),
                      yesOrNo(bank && bank->isUsable())});
    }
    return table;
}

} // namespace zarn::tool
