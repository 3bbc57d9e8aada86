// SPDX-License-Identifier: MIT
#include "document/Recovery.h"

#include "document/Document.h"
#include "document/DocumentFiles.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QUuid>

namespace zarn::editor {
namespace {

/// Behind a change; more changes within that time cost nothing.
constexpr int delay = 10000; // milliseconds

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QStringLiteral("/recovery");
}

QString lockPath(const QString &base)
{
    return base + QStringLiteral(".lock");
}

QString originPath(const QString &base)
{
    return base + QStringLiteral(".origin");
}

void removeAll(const QString &base)
{
    QFile::remove(base + QStringLiteral(".zarn"));
    QFile::remove(originPath(base));
}

} // namespace

Recovery::Recovery(Document &document)
    : _document(document),
      _base(folder() + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    _timer.setSingleShot(true);
    _timer.setInterval(delay);
    connect(&_timer, &QTimer::timeout, this, &Recovery::keep);
    connect(&document, &Document::changed, this, &Recovery::follow);
    connect(&document, &Document::modifiedChanged, this, &Recovery::follow);
}

Recovery::~Recovery()
{
    forget();
}

void Recovery::follow()
{
    if (!_document.isModified())
        forget();
    else if (!_timer.isActive())
        _timer.start();
}

void Recovery::keep()
{
    _timer.stop();
    if (!QDir().mkpath(folder())) {
        Q_EMIT _document.refused(tr("There is no recovery copy: %1").arg(folder()));
        return;
    }
    if (_lock == nullptr) {
        _lock = std::make_unique<QLockFile>(lockPath(_base));
        _lock->setStaleLockTime(0);
        if (!_lock->tryLock(0))
            _lock.reset();
    }
    const SavedFile saved = saveFile(_document.model(), copyPath());
    if (!saved.error.isEmpty()) {
        Q_EMIT _document.refused(tr("There is no recovery copy: %1").arg(saved.error));
        return;
    }
    QFile origin(originPath(_base));
    if (origin.open(QIODevice::WriteOnly))
        origin.write(_document.path().toUtf8());
}

void Recovery::forget()
{
    _timer.stop();
    removeAll(_base);
    _lock.reset();
}

std::vector<LostDocument> lostDocuments()
{
    std::vector<LostDocument> lost;
    const QDir kept(folder());
    for (const QFileInfo &file :
         kept.entryInfoList({QStringLiteral("*.zarn")}, QDir::Files, QDir::Time)) {
        const QString base = file.path() + QLatin1Char('/') + file.completeBaseName();
        QLockFile lock(lockPath(base));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            continue; // a program that is running keeps it
        lock.unlock();
        QFile origin(originPath(base));
        const bool hasOrigin = origin.open(QIODevice::ReadOnly);
        lost.push_back(
            {file.filePath(), hasOrigin ? QString::fromUtf8(origin.readAll()) : QString()});
    }
    return lost;
}

void removeLost(const LostDocument &lost)
{
    const QFileInfo file(lost.copyPath);
    removeAll(file.path() + QLatin1Char('/') + file.completeBaseName());
}

} // namespace zarn::editor
