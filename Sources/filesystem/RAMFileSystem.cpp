// SPDX-License-Identifier: MIT
#include <filesystem/RAMFileSystem.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace filesystem {

namespace {

using Content = std::shared_ptr<const std::string>;

/// "a/b" for "/a//x/../b/"; empty for the root.
std::string normalized(const std::string &path)
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

std::string folderOf(const std::string &path)
{
    const auto last = path.rfind('/');
    return path.substr(0, last != std::string::npos ? last : 0);
}

} // namespace

/// What lies where; paths are normalized. A folder is an entry without content. Each function
/// that can fail answers the reason, or an empty text when it is done.
class RAMFileSystem::Table {
public:
    Content content(const std::string &path) const
    {
        const std::lock_guard lock(_mutex);
        const auto entry = _entries.find(path);
        return entry != _entries.end() ? entry->second : nullptr;
    }

    bool exists(const std::string &path) const
    {
        const std::lock_guard lock(_mutex);
        return _entries.count(path) > 0;
    }

    bool isFolder(const std::string &path) const
    {
        const std::lock_guard lock(_mutex);
        return hasFolder(path);
    }

    std::string whyNotWritable(const std::string &path) const
    {
        const std::lock_guard lock(_mutex);
        return reasonAgainstFile(path);
    }

    std::string put(const std::string &path, Content content)
    {
        const std::lock_guard lock(_mutex);
        auto reason = reasonAgainstFile(path);
        if (reason.empty())
            _entries[path] = std::move(content);
        return reason;
    }

    std::string remove(const std::string &path)
    {
        const std::lock_guard lock(_mutex);
        auto reason = reasonAgainstSource(path);
        if (reason.empty())
            _entries.erase(path);
        return reason;
    }

    std::string rename(const std::string &from, const std::string &to)
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

    std::string makeFolder(const std::string &path)
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

    std::vector<std::string> list(const std::string &folder) const
    {
        const std::lock_guard lock(_mutex);
        std::vector<std::string> names;
        if (!hasFolder(folder))
            return names;
        const auto prefix = folder.empty() ? folder : folder + "/";
        for (auto entry = _entries.lower_bound(prefix);
             entry != _entries.end() && entry->first.compare(0, prefix.size(), prefix) == 0;
             ++entry) {
            const auto name = entry->first.substr(prefix.size());
            if (!name.empty() && name.find('/') == std::string::npos)
                names.push_back(name);
        }
        return names;
    }

private:
    bool hasFile(const std::string &path) const
    {
        const auto entry = _entries.find(path);
        return entry != _entries.end() && entry->second != nullptr;
    }

    bool hasFolder(const std::string &path) const
    {
        const auto entry = _entries.find(path);
        return entry != _entries.end() && entry->second == nullptr;
    }

    std::string reasonAgainstFile(const std::string &path) const
    {
        if (hasFolder(path))
            return "is a folder";
        return hasFolder(folderOf(path)) ? "" : "lies in a folder that does not exist";
    }

    std::string reasonAgainstSource(const std::string &path) const
    {
        if (hasFolder(path))
            return "is a folder";
        return hasFile(path) ? "" : "does not exist";
    }

    mutable std::mutex _mutex;
    /// The root, and what was made.
    std::map<std::string, Content> _entries{{"", nullptr}};
};

/// A reader shares the content, which is never changed; a writer has its own until it closes.
class RAMFileSystem::Handle final : public FileHandle {
public:
    Handle(std::string path, Content content) : _path(std::move(path)), _content(std::move(content))
    {
    }
    Handle(std::string path, std::shared_ptr<Table> table)
        : _path(std::move(path)), _table(std::move(table))
    {
    }

    std::string path() const override { return _path; }
    std::int64_t size() const override { return static_cast<std::int64_t>(bytes().size()); }
    std::int64_t position() const override { return static_cast<std::int64_t>(_position); }

protected:
    bool doSeek(std::int64_t position) override
    {
        _position = static_cast<std::size_t>(position);
        return true;
    }

    std::int64_t doRead(void *data, std::int64_t count) override
    {
        if (_content == nullptr) {
            fail("is open for writing");
            return -1;
        }
        const auto done =
            _content->copy(static_cast<char *>(data), static_cast<std::size_t>(count), _position);
        _position += done;
        return static_cast<std::int64_t>(done);
    }

    std::int64_t doWrite(const void *data, std::int64_t count) override
    {
        if (_content != nullptr) {
            fail("is open for reading");
            return -1;
        }
        const auto length = static_cast<std::size_t>(count);
        const auto replaced = std::min(length, _written.size() - _position);
        _written.replace(_position, replaced, static_cast<const char *>(data), length);
        _position += length;
        return count;
    }

    bool doClose() override
    {
        if (_content != nullptr)
            return true;
        const auto reason = _table->put(normalized(_path),
                                        std::make_shared<const std::string>(std::move(_written)));
        _written.clear();
        _position = 0;
        if (!reason.empty())
            fail(reason);
        return reason.empty();
    }

private:
    const std::string &bytes() const { return _content != nullptr ? *_content : _written; }

    std::string _path;
    std::shared_ptr<Table> _table;
    Content _content;
    std::string _written;
    std::size_t _position = 0;
};

namespace {

bool report(std::string *error, const std::string &path, const std::string &reason)
{
    if (!reason.empty() && error != nullptr)
        *error = path + ": " + reason;
    return reason.empty();
}

} // namespace

RAMFileSystem::RAMFileSystem() : _table(std::make_shared<Table>()) { }
RAMFileSystem::~RAMFileSystem() = default;

std::unique_ptr<FileHandle> RAMFileSystem::open(const std::string &path, OpenMode mode,
                                                std::string *error)
{
    const auto place = normalized(path);
    if (mode == OpenMode::Write) {
        if (!report(error, path, _table->whyNotWritable(place)))
            return nullptr;
        return std::make_unique<Handle>(path, _table);
    }
    auto content = _table->content(place);
    if (content == nullptr) {
        report(error, path, _table->isFolder(place) ? "is a folder" : "does not exist");
        return nullptr;
    }
    return std::make_unique<Handle>(path, std::move(content));
}

bool RAMFileSystem::exists(const std::string &path) const
{
    return _table->exists(normalized(path));
}

bool RAMFileSystem::isFolder(const std::string &path) const
{
    return _table->isFolder(normalized(path));
}

bool RAMFileSystem::remove(const std::string &path, std::string *error)
{
    return report(error, path, _table->remove(normalized(path)));
}

bool RAMFileSystem::rename(const std::string &from, const std::string &to, std::string *error)
{
    return report(error, from, _table->rename(normalized(from), normalized(to)));
}

bool RAMFileSystem::makeFolder(const std::string &path, std::string *error)
{
    return report(error, path, _table->makeFolder(normalized(path)));
}

std::vector<std::string> RAMFileSystem::list(const std::string &folder) const
{
    return _table->list(normalized(folder));
}

} // namespace filesystem
