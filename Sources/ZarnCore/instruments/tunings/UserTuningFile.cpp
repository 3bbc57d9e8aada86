// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/UserTuningFile.h>

#include <ZarnCore/ZarnLog.h>

#include <QFile>
#include <QFileInfo>

#include <filesystem/DiskFileSystem.h>

namespace zarn {

namespace {

std::optional<QByteArray> contentOf(const QString &path, QString *error = nullptr)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        const auto content = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return content;
    }
    if (error != nullptr)
        *error = file.errorString();
    return std::nullopt;
}

/// Puts the content in the place of what the file held, at once, when it is on the disk.
bool replace(const QString &path, const QByteArray &content, std::string *error)
{
    filesystem::DiskFileSystem disk;
    const auto file = disk.open(path.toStdString(), filesystem::OpenMode::Write, error);
    if (file == nullptr)
        return false;
    file->writeBlock(content.constData(), content.size());
    if (file->close())
        return true;
    *error = file->errorText();
    return false;
}

/// "library.kept.xml", "library.kept-2.xml" and so on for "library.xml".
QString keptPath(const QString &path, int number)
{
    const QFileInfo info(path);
    const auto counter = number > 1 ? QStringLiteral("-%1").arg(number) : QString();
    return QStringLiteral("%1/%2.kept%3.%4")
        .arg(info.path(), info.completeBaseName(), counter, info.suffix());
}

} // namespace

std::optional<QByteArray> UserTuningFile::read() const
{
    if (!QFileInfo::exists(path()))
        return std::nullopt;
    QString error;
    auto content = contentOf(path(), &error);
    if (!content)
        warn(QStringLiteral("cannot be read: ") + error);
    return content;
}

bool UserTuningFile::save(const QByteArray &content)
{
    if (!makeFolder())
        return false;
    if (QFileInfo::exists(path())) {
        const auto old = contentOf(path());
        if (!old) {
            warn(QStringLiteral("is not replaced, as it cannot be read"));
            return false;
        }
        const bool isKnown = old->isEmpty() || *old == _known || *old == content;
        if (!isKnown && !keep(*old))
            return false;
        if (*old == content) {
            _known = content;
            return true;
        }
    }
    std::string error;
    if (!replace(path(), content, &error)) {
        warn(QStringLiteral("is not saved: ") + QString::fromStdString(error));
        return false;
    }
    _known = content;
    _lastWarning.clear();
    return true;
}

bool UserTuningFile::makeFolder() const
{
    filesystem::DiskFileSystem disk;
    std::string error;
    if (disk.makeFolder(QFileInfo(path()).path().toStdString(), &error))
        return true;
    warn(QStringLiteral("is not saved: ") + QString::fromStdString(error));
    return false;
}

bool UserTuningFile::keep(const QByteArray &content) const
{
    QString place;
    for (int number = 1; place.isEmpty(); ++number) {
        const auto candidate = keptPath(path(), number);
        if (!QFileInfo::exists(candidate))
            place = candidate;
        else if (contentOf(candidate) == content)
            return true;
    }
    std::string error;
    if (!replace(place, content, &error)) {
        warn(QStringLiteral("is not replaced, as what it holds cannot be kept: ")
             + QString::fromStdString(error));
        return false;
    }
    qCWarning(log::core).noquote()
        << "[GuitarTuningLibrary]" << path() << "held what was not read; it is kept as" << place;
    return true;
}

void UserTuningFile::warn(const QString &reason) const
{
    if (reason == _lastWarning)
        return;
    _lastWarning = reason;
    qCWarning(log::core).noquote() << "[GuitarTuningLibrary]" << path() << reason;
}

} // namespace zarn
