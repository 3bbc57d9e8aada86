// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/UserFile.h>

#include <ZarnCore/ZarnLog.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

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
bool write(const QString &path, const QByteArray &content, std::string *error)
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

constexpr QLatin1String lockSuffix(".lock", 5);

/// A lock that is older was left behind.
constexpr int mostMillisecondsOfAChange = 10000;

/// "library.kept.xml", "library.kept-2.xml" and so on for "library.xml".
QString keptPath(const QString &path, int number)
{
    const QFileInfo info(path);
    const auto counter = number > 1 ? QStringLiteral("-%1").arg(number) : QString();
    return QStringLiteral("%1/%2.kept%3.%4")
        .arg(info.path(), info.completeBaseName(), counter, info.suffix());
}

} // namespace

UserFile::Lock::Lock(const UserFile &file) : _lock(file.path() + lockSuffix)
{
    if (!file.makeFolder())
        return;
    _lock.setStaleLockTime(mostMillisecondsOfAChange);
    QElapsedTimer timer;
    timer.start();
    // A lock that is asked for with a time to wait looks only every few tenths of a second.
    while (!_lock.tryLock(0)) {
        if (_lock.error() != QLockFile::LockFailedError) {
            _isHeld = true; // no lock is possible here: what is written next says why
            return;
        }
        if (timer.elapsed() > 2 * mostMillisecondsOfAChange) {
            file.warn(QStringLiteral("is not saved: another program does not let go of it"));
            return;
        }
        QThread::msleep(2);
    }
    _isHeld = true;
}

std::optional<QByteArray> UserFile::read() const
{
    if (!exists())
        return std::nullopt;
    QString error;
    auto content = contentOf(path(), &error);
    if (!content)
        warn(QStringLiteral("cannot be read: ") + error);
    return content;
}

bool UserFile::exists() const
{
    return QFileInfo::exists(path());
}

bool UserFile::replace(const QByteArray &content) const
{
    std::string error;
    if (!write(path(), content, &error)) {
        warn(QStringLiteral("is not saved: ") + QString::fromStdString(error));
        return false;
    }
    _lastWarning.clear();
    return true;
}

bool UserFile::makeFolder() const
{
    filesystem::DiskFileSystem disk;
    std::string error;
    if (disk.makeFolder(QFileInfo(path()).path().toStdString(), &error))
        return true;
    warn(QStringLiteral("is not saved: ") + QString::fromStdString(error));
    return false;
}

bool UserFile::keep(const QByteArray &content) const
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
    if (!write(place, content, &error)) {
        warn(QStringLiteral("is not replaced, as what it holds cannot be kept: ")
             + QString::fromStdString(error));
        return false;
    }
    qCWarning(log::core).noquote()
        << tag() << path() << "held what was not read; it is kept as" << place;
    return true;
}

QString UserFile::tag() const
{
    return QLatin1Char('[') + QLatin1String(_owner) + QLatin1Char(']');
}

void UserFile::warn(const QString &reason) const
{
    if (reason == _lastWarning)
        return;
    _lastWarning = reason;
    qCWarning(log::core).noquote() << tag() << path() << reason;
}

bool KnownUserText::replace(const UserFile &file, const std::optional<QByteArray> &old,
                            const QByteArray &text)
{
    if (old != text && !file.replace(text))
        return false;
    set(text, true);
    return true;
}

} // namespace zarn
