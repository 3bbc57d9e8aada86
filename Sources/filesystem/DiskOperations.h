// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FilesystemExport.h>

#include <string>
#include <system_error>

namespace filesystem {

/// What a save asks of the operating system to be safe. Another one can stand in, so that a disk
/// that fails can be tried.
class FILESYSTEM_EXPORT DiskOperations {
public:
    DiskOperations();
    DiskOperations(const DiskOperations &) = delete;
    DiskOperations &operator=(const DiskOperations &) = delete;
    virtual ~DiskOperations();

    // Each waits until something is on the disk, and answers no error where that is so or where
    // nobody can know.

    /// The content of an open file.
    virtual std::error_code syncFile(int descriptor);

    /// The names in a folder; the path in the encoding of the system.
    virtual std::error_code syncFolder(const std::string &path);
};

} // namespace filesystem
