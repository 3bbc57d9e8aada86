// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/DiskOperations.h>

#include <QSaveFile>

#include <memory>
#include <string>

namespace filesystem {

/// New content for a file of the disk. It stands beside the file, under a name of its own, until it
/// is complete and takes the place of the old content.
///
/// A save that is killed may leave its file behind; the next one into the same folder removes those
/// that nobody has written for a day.
class AtomicSave {
public:
    /// Answers to `open`; a link is saved through.
    AtomicSave(const QString &path, std::shared_ptr<DiskOperations> operations);

    /// Empty, or why nothing can be written.
    std::string open();

    /// Where to write, while it is open.
    QFileDevice &device() noexcept { return *_file; }

    /// Puts the content in its place when it is on the disk. Empty, or why that failed: then the
    /// old content stands, unless the disk failed after the new one took its place.
    std::string commit();

private:
    std::string moveIntoPlace();
    void removeLeftovers() const;

    QString _target; ///< behind all links
    QString _folder;
    std::unique_ptr<QSaveFile> _file;
    std::shared_ptr<DiskOperations> _operations;
};

/// Why the last thing asked of a device failed: `errno`, which was 0 before, knows more than the
/// device about a disk that is full.
std::string deviceError(const QFileDevice &device);

} // namespace filesystem
