// SPDX-License-Identifier: MIT
#include <filesystem/DiskFileHandle.h>

#include <cerrno>
#include <utility>

namespace filesystem {

DiskFileHandle::DiskFileHandle(std::string path, std::unique_ptr<QFile> file)
    : _path(std::move(path)), _file(std::move(file)), _device(_file.get())
{
}

DiskFileHandle::DiskFileHandle(std::string path, std::unique_ptr<AtomicSave> save)
    : _path(std::move(path)), _save(std::move(save)), _device(&_save->device())
{
}

DiskFileHandle::~DiskFileHandle() = default;

std::int64_t DiskFileHandle::size() const
{
    return _device->size();
}

std::int64_t DiskFileHandle::position() const
{
    return _device->pos();
}

/// The device would tell by the next writing alone, and without the reason, that what it has kept
/// so far cannot be written.
bool DiskFileHandle::doSeek(std::int64_t position)
{
    errno = 0;
    if (_device->isWritable() && !_device->flush()) {
        fail(deviceError(*_device));
        return false;
    }
    return _device->seek(position);
}

std::int64_t DiskFileHandle::doRead(void *data, std::int64_t count)
{
    if (!_device->isReadable()) {
        fail("is open for writing");
        return -1;
    }
    errno = 0;
    const auto done = _device->read(static_cast<char *>(data), count);
    if (done < 0)
        fail(deviceError(*_device));
    return done;
}

std::int64_t DiskFileHandle::doWrite(const void *data, std::int64_t count)
{
    if (!_device->isWritable()) {
        fail("is open for reading");
        return -1;
    }
    errno = 0;
    const auto done = _device->write(static_cast<const char *>(data), count);
    if (done != count)
        fail(deviceError(*_device));
    return done;
}

bool DiskFileHandle::doClose()
{
    errno = 0;
    std::string error;
    if (_save != nullptr)
        error = _save->commit();
    else if (!_file->flush())
        error = deviceError(*_file);
    if (!error.empty())
        fail(error);
    return error.empty();
}

} // namespace filesystem
