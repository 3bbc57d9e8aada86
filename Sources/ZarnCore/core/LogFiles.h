// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <memory>

class QFile;

namespace zarn {

class RunLog;

/// The logs of this run and of the run before it, in one folder. Logs are bytes whose lines end
/// with CR LF. Whatever fails is logged with file and reason; only `LastRun` is answered.
class ZARNCORE_EXPORT LogFiles {
public:
    enum class LastRun { EndedNormally, Crashed };

    LogFiles();
    /// Closes the log without "[QUIT]".
    ~LogFiles();
    LogFiles(const LogFiles &) = delete;
    LogFiles &operator=(const LogFiles &) = delete;

    /// Makes the log of the run before the last log, packs it, and begins a new one.
    ///
    /// - An open log is closed first; without "[QUIT]" it counts as that of a crashed run.
    /// - A log that can be neither renamed nor copied, because the folder cannot be written, is not
    ///   lost: the new run is appended to it.
    /// - Without a log of the run before there was no crash, whatever an older one holds.
    /// - A log that another process still writes is taken for that of a crashed run. Where files
    ///   in use can be renamed, that process goes on writing to what is the last log now.
    /// - Where no log can be opened (a folder that cannot be made, or that is a file) the run goes
    ///   without one: `file()` is null.
    LastRun begin(const QString &folder);

    void close();
    void closeWithQuitTag();

    /// The open log; null before `begin` and after closing.
    QFile *file() const noexcept;

    // All paths have native separators; they are empty before `begin`.
    const QString &current() const noexcept { return _current; }
    const QString &packedCurrent() const noexcept { return _packedCurrent; }
    const QString &last() const noexcept { return _last; }
    const QString &packedLast() const noexcept { return _packedLast; }
    /// Where an application may unpack the last log for its user; nothing is written there.
    const QString &unpackedLast() const noexcept { return _unpackedLast; }

    /// Whether the log of a run exists and lacks its "[QUIT]" line. One of 8 bytes or less, and
    /// one that cannot be read, count as those of a crashed run.
    static bool wasThereACrash(const QString &path);

    /// Compresses a log (`qCompress`); false when there is none. What cannot be read or written is
    /// only logged.
    static bool pack(const QString &from, const QString &to);

    /// The reverse; false too for a file that is no compressed log, which leaves `to` alone.
    static bool unpack(const QString &from, const QString &to);

private:
    void setPaths(const QString &folder);
    bool moveCurrentToLast() const;
    void open(bool keepsContent);

    QString _current;
    QString _packedCurrent;
    QString _last;
    QString _packedLast;
    QString _unpackedLast;
    std::unique_ptr<RunLog> _log;
};

} // namespace zarn
