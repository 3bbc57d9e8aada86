// SPDX-License-Identifier: MIT
#include <filesystem/DiskOperations.h>

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace filesystem {

DiskOperations::DiskOperations() = default;
DiskOperations::~DiskOperations() = default;

#ifdef Q_OS_UNIX

std::error_code DiskOperations::syncFile(int descriptor)
{
    if (::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP)
        return {};
    return {errno, std::generic_category()};
}

std::error_code DiskOperations::syncFolder(const std::string &path)
{
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return {}; // one that may be written, but not read
    const auto error = DiskOperations::syncFile(folder);
    ::close(folder);
    return error;
}

#else

std::error_code DiskOperations::syncFile(int)
{
    return {};
}

std::error_code DiskOperations::syncFolder(const std::string &)
{
    return {};
}

#endif

} // namespace filesystem
