// SPDX-License-Identifier: MIT
#include "audio/fonts/FontCatalogue.h"

#include "common/Failure.h"
#include "common/Terminal.h"

#include <ZarnAudio/ZarnSoundFonts.h>

#include <QFileInfo>

#include <algorithm>

namespace zarn::tool {

Catalogue soundFontCatalogue()
{
    std::string error;
    const auto taken = Halvec::audio::findSoundFont({}, &error);
    auto paths = Halvec::audio::installedSoundFonts();
    if (taken.empty())
        throw Failure(error);
    if (std::find(paths.begin(), paths.end(), taken) == paths.end())
        paths.insert(paths.begin(), taken); // the environment's
    Catalogue catalogue;
    catalogue.things = QStringLiteral("sound fonts");
    catalogue.columns = {{QStringLiteral("Font")},
                         {QStringLiteral("MB"), TextTable::Side::Right},
                         {QStringLiteral("File")},
                         {QStringLiteral("Taken")}};
    for (const auto &path : paths) {
        const QString file = QString::fromStdString(printable(path));
        const QFileInfo info(QString::fromStdString(path));
        constexpr double megabyte = 1e6;
        CatalogueEntry entry;
        entry.key = QFileInfo(info.canonicalFilePath()).completeBaseName();
        entry.cells =
            QStringList{entry.key, QString::number(double(info.size()) / megabyte, 'f', 1), file,
                        path == taken ? QStringLiteral("yes") : QString()};
        entry.object = {{QStringLiteral("name"), entry.key},
                        {QStringLiteral("file"), file},
                        {QStringLiteral("bytes"), double(info.size())},
                        {QStringLiteral("taken"), path == taken}};
        catalogue.entries.push_back(std::move(entry));
    }
    return catalogue;
}

} // namespace zarn::tool
