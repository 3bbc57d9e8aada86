// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileSystem.h>

namespace filesystem {

class DiskOperations;

/// The computer's own files. Saving is atomic: new content is written beside the old file, brought
/// to the disk and renamed over it. What is no ordinary file, such as /dev/stdout, is written
/// directly. Safe for use by several threads.
class FILESYSTEM_EXPORT DiskFileSystem final : public FileSystem {
public:
    DiskFileSystem();

    /// On other operations than the system's own.
    explicit DiskFileSystem(std::shared_ptr<DiskOperations> operations);
    ~DiskFileSystem() override;

    std::unique_ptr<FileHandle> open(const std::string &path, OpenMode mode,
                                     std::string *error = nullptr) override;
    bool exists(const std::string &path) const override;
    bool isFolder(const std::string &path) const override;
    bool remove(const std::string &path, std::string *error = nullptr) override;
    bool rename(const std::string &from, const std::string &to,
                std::string *error = nullptr) override;
    bool makeFolder(const std::string &path, std::string *error = nullptr) override;
    std::vector<std::string> list(const std::string &folder) const override;

private:
    std::unique_ptr<FileHandle> save(const std::string &path, std::string *error);

    std::shared_ptr<DiskOperations> _operations;
};

} // namespace filesystem
