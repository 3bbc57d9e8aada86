// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <optional>

namespace zarn {

/// The file with the user's tunings, as bytes. It is replaced whole or not at all, and changed by
/// one program at a time: whoever changes it holds a lock and looks first at what it holds by then.
///
/// What fails is logged on "zarn.core" with file and reason.
class UserTuningFile {
public:
    /// Keeps other programs from changing the file while it lives; waits for those that do.
    class Lock {
    public:
        explicit Lock(const UserTuningFile &file);

        /// False when the folder cannot be made, or another program does not let go of the file.
        bool isHeld() const noexcept { return _isHeld; }

    private:
        QLockFile _lock;
        bool _isHeld = false;
    };

    /// The path is asked for again at every use, as the application's name may change.
    explicit UserTuningFile(QString (*path)()) : _path(path) { }

    QString path() const { return _path(); }

    /// Nothing when the file is missing, which is no fault, or cannot be read.
    std::optional<QByteArray> read() const;

    bool exists() const;

    /// Writes a copy of a content beside the file, unless there is one; false when that failed.
    bool keep(const QByteArray &content) const;

    /// Writes the file; false when that failed.
    bool replace(const QByteArray &content) const;

    /// Logs something about the file, unless that was the last thing that was logged.
    void warn(const QString &reason) const;

private:
    bool makeFolder() const;

    QString (*_path)();
    mutable QString _lastWarning;
};

} // namespace zarn
