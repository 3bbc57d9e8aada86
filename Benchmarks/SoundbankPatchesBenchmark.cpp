// SPDX-License-Identifier: MIT
// Patches by their identifiers, old and new, against bare look-ups in hash tables.
#include "RatioReport.h"

#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <QDir>
#include <QFile>

#include <string>
#include <unordered_map>
#include <vector>

namespace {

using namespace zarn;

SoundbankPatches builtInPatches()
{
    SoundbankPatches patches;
    const QDir folder(QString::fromLatin1(SoundbankPatch::builtInFolder));
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const auto patch = SoundbankPatch::parse(
            utils::jsonDocument(file.readAll().toStdString(), name.toStdString()));
        patches[patch->id()] = patch;
    }
    return patches;
}

/// Looks every identifier up, one after the other.
template <typename LookUp>
auto eachOf(const std::vector<std::string> &ids, const LookUp &lookUp)
{
    return [&ids, &lookUp](benchmark::State &state) {
        for (auto _ : state)
            for (const std::string &id : ids)
                benchmark::DoNotOptimize(lookUp(id));
    };
}

} // namespace

int main(int argc, char **argv)
{
    const SoundbankPatches patches = builtInPatches();
    const std::unordered_map<std::string, std::string> table(soundbankPatchReplacements().begin(),
                                                             soundbankPatchReplacements().end());
    std::vector<std::string> present;
    for (const auto &[id, patch] : patches)
        if (table.count(id) == 0)
            present.push_back(id);
    std::vector<std::string> replaced;
    for (const auto &[id, replacement] : table)
        replaced.push_back(id);

    const auto ours = [&](const std::string &id) { return resolveSoundbankPatch(patches, id); };
    const auto bare = [&](const std::string &id) { return patches.find(id)->second; };
    const auto bareTwice = [&](const std::string &id) {
        return patches.find(table.find(id)->second)->second;
    };
    bench::RatioReport report;
    report.compare("patches: identifiers that stand for themselves", 2, eachOf(present, bare),
                   eachOf(present, ours));
    report.compare("patches: identifiers that stand for others", 2, eachOf(replaced, bareTwice),
                   eachOf(replaced, ours));
    return report.run(argc, argv);
}
