// SPDX-License-Identifier: MIT
#include <filesystem/RAMFileSystem.h>

#include <filesystem/RAMFileHandle.h>
#include <filesystem/RAMTable.h>

#include <utility>

namespace filesystem {

namespace {

bool report(std::string *error, const std::string &path, const std::string &reason)
{
    if (!reason.empty() && error != nullptr)
        *error = path + ": " + reason;
    return reason.empty();
}

} // namespace

RAMFileSystem::RAMFileSystem() : _table(std::make_shared<RAMTable>()) { }
RAMFileSystem::~RAMFileSystem() = default;

std::unique_ptr<FileHandle> RAMFileSystem::open(const std::string &path, OpenMode mode,
                                                std::string *error)
{
    const auto place = RAMTable::normalized(path);
    if (mode == OpenMode::Write) {
        if (!report(error, path, _table->whyNotWritable(place)))
            return nullptr;
        return std::make_unique<RAMFileHandle>(path, _table);
    }
    auto content = _table->content(place);
    if (content == nullptr) {
        report(error, path, _table->isFolder(place) ? "is a folder" : "does not exist");
        return nullptr;
    }
    return std::make_unique<RAMFileHandle>(path, std::move(content));
}

bool RAMFileSystem::exists(const std::string &path) const
{
    return _table->exists(RAMTable::normalized(path));
}

bool RAMFileSystem::isFolder(const std::string &path) const
{
    return _table->isFolder(RAMTable::normalized(path));
}

bool RAMFileSystem::remove(const std::string &path, std::string *error)
{
    return report(error, path, _table->remove(RAMTable::normalized(path)));
}

bool RAMFileSystem::rename(const std::string &from, const std::string &to, std::string *error)
{
    return report(error, from,
                  _table->rename(RAMTable::normalized(from), RAMTable::normalized(to)));
}

bool RAMFileSystem::makeFolder(const std::string &path, std::string *error)
{
    return report(error, path, _table->makeFolder(RAMTable::normalized(path)));
}

std::vector<std::string> RAMFileSystem::list(const std::string &folder) const
{
    return _table->list(RAMTable::normalized(folder));
}

} // namespace filesystem
