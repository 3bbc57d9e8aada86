// SPDX-License-Identifier: MIT
#include "ScoreFiles.h"

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/DiskFileSystem.h>

#include <QDir>

std::vector<std::string> scoreFiles()
{
    const QString chosen = qEnvironmentVariable("ZARN_SCORES");
    const QString real =
        chosen.isEmpty() ? QStringLiteral(ZARN_SOURCE_DIR "/../shared/scores") : chosen;
    const QString folders[] = {QStringLiteral(ZARN_SOURCE_DIR "/Samples"),
                               real + QStringLiteral("/musicxml")};
    std::vector<std::string> paths;
    for (const QString &folder : folders) {
        const auto files = QDir(folder).entryInfoList(
            {QStringLiteral("*.musicxml"), QStringLiteral("*.xml"), QStringLiteral("*.mxl")},
            QDir::Files, QDir::Name);
        for (const QFileInfo &file : files)
            paths.push_back(file.filePath().toStdString());
    }
    return paths;
}

std::shared_ptr<zarn::ScoreModel> readScore(const std::string &path)
{
    filesystem::DiskFileSystem disk;
    const auto handle = disk.open(path, filesystem::OpenMode::Read);
    if (handle == nullptr)
        ZARN_RAISE_IN("readScore", path + ": cannot be opened");
    zarn::io::ImportReport report;
    const zarn::io::NativeImporter native;
    if (native.acceptsHandle(*handle))
        return native.read(*handle, report);
    return zarn::io::MusicXmlImporter().read(*handle, report);
}
