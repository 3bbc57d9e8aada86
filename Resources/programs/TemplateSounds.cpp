// SPDX-License-Identifier: MIT
#include "TemplateSounds.h"

#include "CatalogueReading.h"

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>

#include <QFile>

#include <algorithm>
#include <functional>

namespace zarn::resources {

namespace {

constexpr const char *function = "zarn::resources::TemplateSounds";

void readFile(const QString &path, const std::function<void(const rapidjson::Document &)> &read)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        ZARN_RAISE_IN(function, (path + QStringLiteral(": ") + file.errorString()).toStdString());
    Complaints complaints;
    readCatalogue({path.toStdString(), file.readAll().toStdString()}, complaints, read);
    if (!complaints.empty())
        ZARN_RAISE_IN(function, complaints.front());
}

bool isUsual(const SoundbankPatch &patch, const InstrumentSet &set)
{
    const auto &elements = set.elements();
    return std::all_of(elements.begin(), elements.end(), [&patch](const auto &element) {
        return patch.soundbankId(element.name()) == element.soundbankName();
    });
}

} // namespace

TemplateSounds::TemplateSounds(const QDir &resources)
{
    InstrumentSetLibrary sets;
    readFile(resources.filePath(QStringLiteral("instrumentSet/ZarnInstrumentSets.json")),
             [&sets](const auto &document) { sets.parse(arrayOf(document, "instrumentSets")); });
    const QDir folder(resources.filePath(QStringLiteral("soundbankPatches")));
    for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files))
        readFile(file.filePath(), [&](const auto &document) {
            const auto patch = SoundbankPatch::parse(document);
            const auto set = sets.findInstrumentSetWithType(patch->instrumentSetType());
            _patches.insert(patch->id());
            if (set != nullptr && isUsual(*patch, *set))
                _usual.emplace(set->type(), patch->id());
        });
}

std::string TemplateSounds::patchId(const TemplateRow &row) const
{
    if (row.patch.empty()) {
        const auto usual = _usual.find(row.type);
        if (usual == _usual.end())
            ZARN_RAISE_IN(function,
                          "no patch has the banks of the instrument set \""
                              + InstrumentSet::typeToString(row.type) + "\"");
        return usual->second;
    }
    if (row.patch == "none")
        return {};
    if (_patches.count(row.patch) == 0)
        ZARN_RAISE_IN(function, "there is no patch \"" + row.patch + "\"");
    return row.patch;
}

} // namespace zarn::resources
