// SPDX-License-Identifier: MIT
#include <ZarnCore/core/RunLog.h>

#include <ZarnCore/ZarnLog.h>

#include <QByteArray>

namespace zarn {

namespace {

constexpr auto runLine = "[RUN]\r\n";
constexpr auto quitLine = "[QUIT]\r\n";

} // namespace

RunLog::RunLog(const QString &path) : QFile(path) { }

RunLog::~RunLog() = default;

bool RunLog::begin(OpenMode mode)
{
    return open(mode) && write(runLine) > 0 && flush();
}

void RunLog::writeQuitTag()
{
    write(quitLine);
}

bool RunLog::end()
{
    const bool isWhole = flush() && error() == NoError;
    if (!isWhole)
        qCWarning(log::core).noquote()
            << "[ZarnCore]" << fileName() << "is not whole:" << errorString();
    close();
    return isWhole;
}

qint64 RunLog::writeData(const char *data, qint64 size)
{
    QByteArray lines;
    lines.reserve(static_cast<int>(size + size / 8 + 1));
    for (const char *next = data; next != data + size; ++next) {
        if (*next == '\n' && !_endsWithReturn)
            lines += '\r';
        lines += *next;
        _endsWithReturn = *next == '\r';
    }
    return QFile::writeData(lines.constData(), lines.size()) == lines.size() ? size : -1;
}

} // namespace zarn
