// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zarn {

/// The file with the user's tunings, as bytes. It is replaced whole or not at all, and never when
/// it holds something that nobody has read: that is kept beside it first.
///
/// What fails is logged on "zarn.core" with file and reason.
class UserTuningFile {
public:
    /// The path is asked for again at every use, as the application's name may change.
    explicit UserTuningFile(QString (*path)()) : _path(path) { }

    QString path() const { return _path(); }

    /// Nothing when the file is missing, which is no fault, or cannot be read.
    std::optional<QByteArray> read() const;

    /// Says that the library holds everything of a content that was read.
    void setKnown(const QByteArray &content) { _known = content; }

    /// Makes the folder and writes the file; false when that failed. A file that holds just this
    /// is not touched, so that saving again and again costs no writing.
    bool save(const QByteArray &content);

    /// Logs something about the file, unless that was the last thing that was logged.
    void warn(const QString &reason) const;

private:
    bool makeFolder() const;
    bool keep(const QByteArray &content) const;

    QString (*_path)();
    QByteArray _known;
    mutable QString _lastWarning;
};

} // namespace zarn
