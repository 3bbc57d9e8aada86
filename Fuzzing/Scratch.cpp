// SPDX-License-Identifier: MIT
#include "Scratch.h"

#include "Fuzzing.h"

#include <QFile>

namespace fuzz {

ScratchFolder::ScratchFolder(const char *variable)
{
    expect(_folder.isValid(), "a temporary folder can be made");
    if (variable != nullptr)
        qputenv(variable, _folder.path().toLocal8Bit());
}

QString ScratchFolder::path(const char *name) const
{
    return _folder.filePath(QString::fromLatin1(name));
}

void ScratchFolder::write(const QString &path, std::string_view bytes) const
{
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly)
               && file.write(bytes.data(), static_cast<qint64>(bytes.size()))
                   == static_cast<qint64>(bytes.size()),
           "a temporary file can be written");
}

std::string ScratchFolder::read(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace fuzz
