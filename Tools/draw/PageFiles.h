// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QSaveFile>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace zarn::tool {

/// The files that a drawing becomes. They take the places of older ones together and only when all
/// of them are written; whatever fails before leaves those as they were.
class PageFiles {
public:
    /// One file, or standard output for "-".
    void write(const QString &path, const std::function<void(QIODevice &)> &content);

    /// Puts all in their places. Raises `Failure`.
    void commit();

    /// Of all files that were written, in order.
    const QStringList &paths() const noexcept { return _paths; }

private:
    std::vector<std::unique_ptr<QSaveFile>> _files;
    QByteArray _output;
    QStringList _paths;
};

/// "song-2.svg" for the second page of "song.svg".
QString pagePath(const QString &path, std::size_t page);

} // namespace zarn::tool
