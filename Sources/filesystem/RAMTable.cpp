// SPDX-License-Identifier: MIT
#include <filesystem/RAMTable.h>

#include <algorithm>
#include <utility>

namespace filesystem {

namespace {

std::string folderOf(const std::string &path)
{
    const auto last = path.rfind('/');
    return path.substr(0, last != std::string::npos ? last : 0);
}

} // namespace

std::string RAMTable::normalized(const std::string &path)
{
    std::string result;
    for (std::size_t begin = 0; begin <= path.size();) {
        const auto end = std::min(path.find('/', begin), path.size());
        const auto part = path.substr(begin, end - begin);
        begin = end + 1;
        if (part == "..") {
            const auto last = result.rfind('/');
            result.erase(last != std::string::npos ? last : 0);
        } else if (!part.empty() && part != ".") {
            result += (result.empty() ? "" : "/") + part;
        }
    }
    return result;
}

RAMTable::Content RAMTable::content(const std::string &path) const
{
    const std::lock_guard lock(_mutex);
    const auto entry = _entries.find(path);
    return entry != _entries.end() ? entry->second : nullptr;
}

bool RAMTable::exists(const std::string &path) const
{
    const std::lock_guard lock(_mutex);
    return _entries.count(path) > 0;
}

bool RAMTable::isFolder(const std::string &path) const
{
    const std::lock_guard lock(_mutex);
    return hasFolder(path);
}

std::string RAMTable::whyNotWritable(const std::string &path) const
{
    const std::lock_guard lock(_mutex);
    return reasonAgainstFile(path);
}

std::string RAMTable::put(const std::string &path, Content content)
{
    const std::lock_guard lock(_mutex);
    auto reason = reasonAgainstFile(path);
    if (reason.empty())
        _entries[path] = std::move(content);
    return reason;
}

std::string RAMTable::remove(const std::string &path)
{
    const std::lock_guard lock(_mutex);
    auto reason = reasonAgainstSource(path);
    if (reason.empty())
        _entries.erase(path);
    return reason;
}

std::string RAMTable::rename(const std::string &from, const std::string &to)
{
    const std::lock_guard lock(_mutex);
    auto reason = reasonAgainstSource(from);
    if (reason.empty())
        reason = reasonAgainstFile(to);
    if (!reason.empty() || from == to)
        return reason;
    _entries[to] = _entries[from];
    _entries.erase(from);
    return reason;
}

std::string RAMTable::makeFolder(const std::string &path)
{
    const std::lock_guard lock(_mutex);
    for (auto end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1)) {
        if (hasFile(path.substr(0, end)))
            return path.substr(0, end) + " is a file";
    }
    if (hasFile(path))
        return "is a file";
    for (auto folder = path; !hasFolder(folder); folder = folderOf(folder))
        _entries.emplace(folder, nullptr);
    return {};
}

std::vector<std::string> RAMTable::list(const std::string &folder) const
{
    const std::lock_guard lock(_mutex);
    std::vector<std::string> names;
    if (!hasFolder(folder))
        return names;
    const auto prefix = folder.empty() ? folder : folder + "/";
    for (auto entry = _entries.lower_bound(prefix);
         entry != _entries.end() && entry->first.compare(0, prefix.size(), prefix) == 0; ++entry) {
        const auto name = entry->first.substr(prefix.size());
        if (!name.empty() && name.find('/') == std::string::npos)
            names.push_back(name);
    }
    return names;
}

bool RAMTable::hasFile(const std::string &path) const
{
    const auto entry = _entries.find(path);
    return entry != _entries.end() && entry->second != nullptr;
}

bool RAMTable::hasFolder(const std::string &path) const
{
    const auto entry = _entries.find(path);
    return entry != _entries.end() && entry->second == nullptr;
}

std::string RAMTable::reasonAgainstFile(const std::string &path) const
{
    if (hasFolder(path))
        return "is a folder";
    return hasFolder(folderOf(path)) ? "" : "lies in a folder that does not exist";
}

std::string RAMTable::reasonAgainstSource(const std::string &path) const
{
    if (hasFolder(path))
        return "is a folder";
    return hasFile(path) ? "" : "does not exist";
}

} // namespace filesystem
