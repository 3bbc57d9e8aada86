// SPDX-License-Identifier: MIT
#include <filesystem/AtomicSave.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <utility>

namespace filesystem {

namespace {

constexpr QLatin1String namePrefix(".zarn-save-", 11);
constexpr qint64 secondsUntilLeftOver = 24 * 60 * 60;

QString uniqueName()
{
    static std::atomic<unsigned> count = 0;
    return namePrefix
        + QStringLiteral("%1-%2").arg(QCoreApplication::applicationPid()).arg(++count);
}

/// What a path leads to, also when there is nothing yet; the path itself when links go in circles.
QString behindLinks(const QString &path)
{
    QFileInfo info(path);
    for (int depth = 0; info.isSymLink(); ++depth) {
        constexpr int mostLinks = 128;
        if (depth == mostLinks)
            return path;
        info.setFile(info.symLinkTarget());
    }
    return info.filePath();
}

} // namespace

std::string deviceError(const QFileDevice &device)
{
    return errno != 0 ? std::generic_category().message(errno) : device.errorString().toStdString();
}

AtomicSave::AtomicSave(const QString &path, std::shared_ptr<DiskOperations> operations)
    : _target(behindLinks(path)), _folder(QFileInfo(_target).path()),
      _operations(std::move(operations))
{
}

std::string AtomicSave::open()
{
    if (const QFileInfo old(_target); old.exists() && !old.isWritable())
        return std::generic_category().message(EACCES);
    removeLeftovers();
    _file = std::make_unique<QSaveFile>(_folder + QLatin1Char('/') + uniqueName());
    return _file->open(QIODevice::WriteOnly) ? std::string() : _file->errorString().toStdString();
}

std::string AtomicSave::commit()
{
    // QSaveFile would notice neither that the last of its buffer cannot be written nor that the
    // content does not reach the disk.
    errno = 0;
    if (!_file->flush())
        return deviceError(*_file);
    if (const QFileInfo old(_target); old.exists())
        _file->setPermissions(old.permissions());
    if (const auto error = _operations->syncFile(_file->handle()))
        return error.message();
    errno = 0;
    if (!_file->commit())
        return deviceError(*_file);
    return moveIntoPlace();
}

std::string AtomicSave::moveIntoPlace()
{
    const auto native = [](const QString &path) { return QFile::encodeName(path).toStdString(); };
    const QString written = _file->fileName();
    std::error_code error;
    std::filesystem::rename(native(written), native(_target), error);
    if (error) {
        QFile::remove(written);
        return error.message();
    }
    error = _operations->syncFolder(native(_folder));
    return error ? "is written, but may get lost: " + error.message() : std::string();
}

void AtomicSave::removeLeftovers() const
{
    const auto before = QDateTime::currentDateTimeUtc().addSecs(-secondsUntilLeftOver);
    const auto found = QDir(_folder).entryInfoList({namePrefix + QLatin1Char('*')},
                                                   QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo &file : found)
        if (file.lastModified() < before)
            QFile::remove(file.filePath());
}

} // namespace filesystem
