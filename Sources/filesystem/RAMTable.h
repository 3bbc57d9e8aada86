// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace filesystem {

/// What lies where in memory; paths are normalized. Each function that can fail answers the
/// reason, or an empty text when it is done. Safe for use by several threads.
class RAMTable {
public:
    /// Bytes of a file; never changed, so that readers share them.
    using Content = std::shared_ptr<const std::string>;

    /// "a/b" for "/a//x/../b/"; empty for the root.
    static std::string normalized(const std::string &path);

    /// Null when there is no file.
    Content content(const std::string &path) const;
    bool exists(const std::string &path) const;
    bool isFolder(const std::string &path) const;
    std::string whyNotWritable(const std::string &path) const;
    std::string put(const std::string &path, Content content);
    std::string remove(const std::string &path);
    std::string rename(const std::string &from, const std::string &to);
    std::string makeFolder(const std::string &path);
    std::vector<std::string> list(const std::string &folder) const;

private:
    bool hasFile(const std::string &path) const;
    bool hasFolder(const std::string &path) const;
    std::string reasonAgainstFile(const std::string &path) const;
    std::string reasonAgainstSource(const std::string &path) const;

    mutable std::mutex _mutex;
    /// The root, and what was made; a folder is an entry without content.
    std::map<std::string, Content> _entries{{"", nullptr}};
};

} // namespace filesystem
