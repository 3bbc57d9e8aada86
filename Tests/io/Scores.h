// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/DiskFileSystem.h>
#include <filesystem/RAMFileSystem.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>
#include <string>

namespace scores {

/// Folder of the real scores; not there on every machine.
inline QString folder()
{
    const auto chosen = qEnvironmentVariable("ZARN_SCORES");
    return chosen.isEmpty() ? QStringLiteral(ZARN_SOURCE_DIR "/../shared/scores") : chosen;
}

inline bool areHere()
{
    return QFileInfo::exists(folder() + QStringLiteral("/truth.json"));
}

inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Imports what is in memory.
inline std::shared_ptr<zarn::ScoreModel> import(const QByteArray &bytes,
                                                zarn::io::ImportReport &report,
                                                const std::string &name = "test.musicxml")
{
    filesystem::RAMFileSystem files;
    auto writing = files.open(name, filesystem::OpenMode::Write);
    writing->writeBlock(bytes.constData(), bytes.size());
    writing->close();
    auto handle = files.open(name, filesystem::OpenMode::Read);
    return zarn::io::MusicXmlImporter().read(*handle, report);
}

inline std::shared_ptr<zarn::ScoreModel> importFile(const QString &path,
                                                    zarn::io::ImportReport &report)
{
    filesystem::DiskFileSystem disk;
    auto handle = disk.open(path.toStdString(), filesystem::OpenMode::Read);
    return handle ? zarn::io::MusicXmlImporter().read(*handle, report) : nullptr;
}

} // namespace scores

#define SKIP_WITHOUT_SCORES()                                                                      \
    if (!scores::areHere())                                                                        \
    GTEST_SKIP() << "the real scores are not in " << scores::folder().toStdString()                \
                 << "; set ZARN_SCORES to their folder"
