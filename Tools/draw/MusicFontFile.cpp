// SPDX-License-Identifier: MIT
#include "draw/MusicFontFile.h"

#include "common/Arguments.h"
#include "common/Failure.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnLayout/font/ZarnMusicFont.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zarn::tool {
namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(path.toStdString() + ": " + file.errorString().toStdString());
    return file.readAll();
}

/// Empty when there are none.
QString metadataPath(const QString &font)
{
    const QDir folder = QFileInfo(font).dir();
    const QString base = QFileInfo(font).completeBaseName();
    for (const QString &name :
         {base + QStringLiteral(".json"), QFileInfo(font).fileName() + QStringLiteral(".json"),
          base + QStringLiteral("_metadata.json"),
          base.toLower() + QStringLiteral("_metadata.json"), QStringLiteral("metadata.json")})
        if (folder.exists(name))
            return folder.filePath(name);
    return {};
}

} // namespace

std::shared_ptr<const layout::MusicFont> readMusicFont(const Arguments &arguments)
{
    const QString path = arguments.value(QStringLiteral("font"));
    if (path.isEmpty())
        return layout::MusicFont::builtIn();
    const QByteArray file = contentOf(path);
    const QString beside = metadataPath(path);
    const QByteArray metadata = beside.isEmpty() ? QByteArray() : contentOf(beside);
    const QString name = QFileInfo(beside.isEmpty() ? path : beside).fileName();
    try {
        return layout::MusicFont::open(
            file, {metadata.constData(), static_cast<std::size_t>(metadata.size())},
            name.toStdString());
    } catch (const CoreException &problem) {
        throw Failure(path.toStdString() + ": " + problem.message());
    }
}

} // namespace zarn::tool
