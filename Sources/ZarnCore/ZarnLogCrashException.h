// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnException.h>

#include <QString>

namespace zarn {

/// The run before this one did not end normally; its compressed log tells more.
class ZARNCORE_EXPORT LogCrashException final : public CoreException {
public:
    LogCrashException(const std::string &message, const char *file, const char *function, int line,
                      const QString &logFilename);
    LogCrashException(const LogCrashException &other);
    LogCrashException &operator=(const LogCrashException &other);
    ~LogCrashException() override;

    /// Path of the compressed log of the run that crashed; `Core::createLogFromLgz` unpacks it.
    QString getLogFilename() const { return _logFilename; }

private:
    QString _logFilename;
};

} // namespace zarn
