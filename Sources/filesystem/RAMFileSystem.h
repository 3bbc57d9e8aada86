// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileSystem.h>

namespace filesystem {

class RAMTable;

/// Files in memory, gone with the last handle once this object is gone. A path means the same with
/// and without "/" in front; "." and ".." are resolved. Safe for use by several threads.
class FILESYSTEM_EXPORT RAMFileSystem final : public FileSystem {
public:
    /// One empty folder, the root.
    RAMFileSystem();
    ~RAMFileSystem() override;

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
    /// Shared with the handles that write, which put their content here when they close.
    std::shared_ptr<RAMTable> _table;
};

} // namespace filesystem
