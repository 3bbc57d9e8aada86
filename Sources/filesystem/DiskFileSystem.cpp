// SPDX-License-Identifier: MIT
#include <filesystem/DiskFileSystem.h>

#include <filesystem/AtomicSave.h>
#include <filesystem/DiskFileHandle.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace filesystem {

namespace {

QString toQt(const std::string &path)
{
    return QString::fromUtf8(path.data(), static_cast<int>(path.size()));
}

std::nullptr_t refuse(std::string *error, const std::string &path, const std::string &reason)
{
    if (error != nullptr)
        *error = path + ": " + reason;
    return nullptr;
}

/// Runs an operation of the standard library that reports by error code.
template <typename Operation>
bool attempt(std::string *error, const std::string &path, Operation operation)
{
    std::error_code code;
    operation(code);
    if (code)
        refuse(error, path, code.message());
    return !code;
}

} // namespace

DiskFileSystem::DiskFileSystem() : DiskFileSystem(std::make_shared<DiskOperations>()) { }
DiskFileSystem::DiskFileSystem(std::shared_ptr<DiskOperations> operations)
    : _operations(std::move(operations))
{
}
DiskFileSystem::~DiskFileSystem() = default;

std::unique_ptr<FileHandle> DiskFileSystem::open(const std::string &path, OpenMode mode,
                                                 std::string *error)
{
    if (path.empty())
        return refuse(error, path, "has no name");
    if (isFolder(path))
        return refuse(error, path, "is a folder");
    const QFileInfo info(toQt(path));
    const bool isSpecial = info.exists() && !info.isFile();
    if (mode == OpenMode::Write && !isSpecial)
        return save(path, error);
    auto file = std::make_unique<QFile>(toQt(path));
    if (!file->open(mode == OpenMode::Read ? QIODevice::ReadOnly : QIODevice::WriteOnly))
        return refuse(error, path, file->errorString().toStdString());
    return std::make_unique<DiskFileHandle>(path, std::move(file));
}

std::unique_ptr<FileHandle> DiskFileSystem::save(const std::string &path, std::string *error)
{
    auto save = std::make_unique<AtomicSave>(toQt(path), _operations);
    if (const std::string reason = save->open(); !reason.empty())
        return refuse(error, path, reason);
    return std::make_unique<DiskFileHandle>(path, std::move(save));
}

bool DiskFileSystem::exists(const std::string &path) const
{
    return QFileInfo::exists(toQt(path));
}

bool DiskFileSystem::isFolder(const std::string &path) const
{
    return QFileInfo(toQt(path)).isDir();
}

bool DiskFileSystem::remove(const std::string &path, std::string *error)
{
    if (isFolder(path)) {
        refuse(error, path, "is a folder");
        return false;
    }
    QFile file(toQt(path));
    if (file.remove())
        return true;
    refuse(error, path, file.errorString().toStdString());
    return false;
}

bool DiskFileSystem::rename(const std::string &from, const std::string &to, std::string *error)
{
    if (isFolder(from)) {
        refuse(error, from, "is a folder");
        return false;
    }
    return attempt(error, isFolder(to) ? to : from, [&](std::error_code &code) {
        std::filesystem::rename(std::filesystem::u8path(from), std::filesystem::u8path(to), code);
    });
}

bool DiskFileSystem::makeFolder(const std::string &path, std::string *error)
{
    if (isFolder(path))
        return true;
    return attempt(error, path, [&](std::error_code &code) {
        // A "/" at the end makes the standard library answer false for a folder that it made.
        std::filesystem::create_directories(std::filesystem::u8path(path), code);
    });
}

std::vector<std::string> DiskFileSystem::list(const std::string &folder) const
{
    std::vector<std::string> names;
    const auto entries =
        QDir(toQt(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Unsorted);
    names.reserve(static_cast<std::size_t>(entries.size()));
    for (const auto &entry : entries)
        names.push_back(entry.toStdString());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace filesystem
