// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnLogCrashException.h>

namespace zarn {

LogCrashException::LogCrashException(const std::string &message, const char *file,
                                     const char *function, int line, const QString &logFilename)
    : CoreException(message, file, function, line), _logFilename(logFilename)
{
}

LogCrashException::LogCrashException(const LogCrashException &other) = default;
LogCrashException &LogCrashException::operator=(const LogCrashException &other) = default;
LogCrashException::~LogCrashException() = default;

} // namespace zarn
