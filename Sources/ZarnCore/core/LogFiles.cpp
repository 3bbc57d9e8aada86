// SPDX-License-Identifier: MIT
#include <ZarnCore/core/LogFiles.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/core/RunLog.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QtEndian>

#include <optional>

namespace zarn {

namespace {

void warn(const QString &path, const QString &reason)
{
    qCWarning(log::core).noquote().nospace() << "[ZarnCore] " << path << ": " << reason;
}

void removeFile(const QString &path)
{
    QFile file(path);
    if (!path.isEmpty() && file.exists() && !file.remove())
        warn(path, QStringLiteral("cannot be removed: ") + file.errorString());
}

std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        warn(path, QStringLiteral("cannot be read: ") + file.errorString());
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        warn(path, QStringLiteral("was read only in part: ") + file.errorString());
    return bytes;
}

/// Whether that many bytes can come out of these: `qUncompress` takes the memory for the size that
/// stands at their front before it looks at anything else.
bool canHoldItsSize(const QByteArray &packed)
{
    constexpr qint64 sizeBytes = 4;
    constexpr qint64 mostPerByte = 1032; // a match of 258 bytes takes two bits
    return packed.size() < sizeBytes
        || qFromBigEndian<quint32>(packed.constData()) <= (packed.size() - sizeBytes) * mostPerByte;
}

void replaceContent(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    if (!isWritten)
        warn(path, QStringLiteral("cannot be written: ") + file.errorString());
}

} // namespace

LogFiles::LogFiles() = default;

LogFiles::~LogFiles()
{
    close();
}

LogFiles::LastRun LogFiles::begin(const QString &folder)
{
    close();
    if (!QDir().mkpath(folder))
        warn(folder, QStringLiteral("is no folder, and none can be made there"));
    setPaths(folder);
    removeFile(_last);
    removeFile(_packedLast);
    const bool hadLog = QFile::exists(_current);
    const bool isMoved = hadLog && moveCurrentToLast();
    const QString &lastRun = hadLog && !isMoved ? _current : _last;
    removeFile(_packedCurrent);
    if (hadLog)
        pack(lastRun, _packedLast);
    const bool crashed = hadLog && wasThereACrash(lastRun);
    open(hadLog && !isMoved);
    return crashed ? LastRun::Crashed : LastRun::EndedNormally;
}

void LogFiles::setPaths(const QString &folder)
{
    const auto path = [&folder](const char *suffix) {
        return QDir::toNativeSeparators(folder + QLatin1String(suffix));
    };
    _current = path("/currentLog.log");
    _packedCurrent = path("/currentLog.lgz");
    _last = path("/lastLog.log");
    _packedLast = path("/lastLog.lgz");
    _unpackedLast = path("/unzippedLastLog.log");
}

bool LogFiles::moveCurrentToLast() const
{
    QFile file(_current);
    if (file.rename(_last))
        return true;
    const QString reason = file.errorString();
    if (QFile::copy(_current, _last))
        return true;
    warn(_current,
         QStringLiteral("can be neither renamed nor copied to ") + _last + QStringLiteral(": ")
             + reason);
    return false;
}

void LogFiles::open(bool keepsContent)
{
    _log = std::make_unique<RunLog>(_current);
    if (_log->begin(keepsContent ? QIODevice::Append : QIODevice::WriteOnly))
        return;
    warn(_current, QStringLiteral("cannot be begun, this run has no log: ") + _log->errorString());
    _log.reset();
}

void LogFiles::close()
{
    if (_log == nullptr)
        return;
    _log->end();
    _log.reset();
}

void LogFiles::closeWithQuitTag()
{
    if (_log != nullptr)
        _log->writeQuitTag();
    close();
}

QFile *LogFiles::file() const noexcept
{
    return _log.get();
}

bool LogFiles::wasThereACrash(const QString &path)
{
    constexpr qint64 quitLineSize = 8;
    QFile file(path);
    if (!file.exists())
        return false;
    if (!file.open(QIODevice::ReadOnly)) {
        warn(path, QStringLiteral("cannot be read: ") + file.errorString());
        return true;
    }
    const qint64 size = file.size();
    if (size <= quitLineSize || !file.seek(size - quitLineSize))
        return true;
    return file.read(6) != "[QUIT]";
}

bool LogFiles::pack(const QString &from, const QString &to)
{
    if (!QFile::exists(from))
        return false;
    const auto bytes = contentOf(from);
    if (bytes.has_value())
        replaceContent(to, qCompress(*bytes, -1));
    return true;
}

bool LogFiles::unpack(const QString &from, const QString &to)
{
    if (!QFile::exists(from))
        return false;
    const auto packed = contentOf(from);
    if (!packed.has_value())
        return true;
    if (!canHoldItsSize(*packed)) {
        warn(from, QStringLiteral("is no compressed log: it is too short for what it claims"));
        return false;
    }
    const QByteArray bytes = qUncompress(*packed);
    const QByteArray packedNothing(4, '\0');
    if (bytes.isNull() && *packed != packedNothing) {
        warn(from, QStringLiteral("is no compressed log"));
        return false;
    }
    replaceContent(to, bytes);
    return true;
}

} // namespace zarn
