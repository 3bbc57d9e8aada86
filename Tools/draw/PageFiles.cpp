// SPDX-License-Identifier: MIT
#include "draw/PageFiles.h"

#include "common/Documents.h"
#include "common/Failure.h"

#include <QBuffer>
#include <QFileInfo>

#include <iostream>

namespace zarn::tool {
namespace {

[[noreturn]] void fail(const QSaveFile &file)
{
    throw Failure(file.fileName().toStdString() + ": " + file.errorString().toStdString());
}

} // namespace

void PageFiles::write(const QString &path, const std::function<void(QIODevice &)> &content)
{
    if (isStandardStream(path.toStdString())) {
        QBuffer buffer(&_output);
        buffer.open(QIODevice::WriteOnly);
        content(buffer);
        return;
    }
    _files.push_back(std::make_unique<QSaveFile>(path));
    QSaveFile &file = *_files.back();
    if (!file.open(QIODevice::WriteOnly))
        fail(file);
    content(file);
    if (!file.flush())
        fail(file);
    _paths.append(path);
}

void PageFiles::commit()
{
    for (const auto &file : _files)
        if (!file->commit())
            fail(*file);
    std::cout.write(_output.constData(), _output.size());
}

QString pagePath(const QString &path, std::size_t page)
{
    const QString suffix = QFileInfo(path).suffix();
    const QString stem = suffix.isEmpty() ? path : path.chopped(suffix.size() + 1);
    return QStringLiteral("%1-%2%3").arg(stem, QString::number(page + 1),
                                         suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix);
}

} // namespace zarn::tool
