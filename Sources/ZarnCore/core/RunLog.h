// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

namespace zarn {

/// The open log of a run. Whatever is appended to it, through it or through a stream on it, every
/// line end arrives as CR LF: a line feed alone gets its carriage return, on every platform.
class RunLog final : public QFile {
public:
    explicit RunLog(const QString &path);
    ~RunLog() override;

    /// Opens the file, at its end or emptied, and brings "[RUN]" to the disk.
    bool begin(OpenMode mode);

    /// Writes "[QUIT]", by which the next run knows that this one ended normally.
    void writeQuitTag();

    /// Closes the file; false, and a warning, when something that was written did not arrive.
    bool end();

protected:
    qint64 writeData(const char *data, qint64 size) override;

private:
    bool _endsWithReturn = false;
};

} // namespace zarn
