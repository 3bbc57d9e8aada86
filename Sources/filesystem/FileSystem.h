// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>

#include <memory>
#include <string>
#include <vector>

namespace filesystem {

enum class OpenMode { Read, Write };

/// Where documents live. An application may bring its own; paths are UTF-8 with "/" between parts.
///
/// What can fail takes an `error` that is set, when given, to the file's name and the reason.
class FILESYSTEM_EXPORT FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem &) = delete;
    FileSystem &operator=(const FileSystem &) = delete;
    virtual ~FileSystem();

    /// Opens a file. Reading asks for one that exists; writing starts from nothing, in a folder
    /// that exists, and the old file stays whole until `FileHandle::close` has put the new one in
    /// its place. Empty when the file cannot be opened.
    virtual std::unique_ptr<FileHandle> open(const std::string &path, OpenMode mode,
                                             std::string *error = nullptr) = 0;

    /// Whether there is a file or a folder.
    virtual bool exists(const std::string &path) const = 0;
    virtual bool isFolder(const std::string &path) const = 0;

    /// Removes a file; false when there is none or it cannot be removed. A handle that is open
    /// on it goes on reading what it was.
    virtual bool remove(const std::string &path, std::string *error = nullptr) = 0;

    /// Gives a file another name at once, replacing a file that has it.
    virtual bool rename(const std::string &from, const std::string &to,
                        std::string *error = nullptr) = 0;

    /// Makes a folder with all that are missing above it; true when it stands afterwards.
    virtual bool makeFolder(const std::string &path, std::string *error = nullptr) = 0;

    /// Names (without the folder) of what a folder holds, sorted by their bytes; empty when it
    /// cannot be read.
    virtual std::vector<std::string> list(const std::string &folder) const = 0;
};

} // namespace filesystem
