// SPDX-License-Identifier: MIT
#include <filesystem/DiskFileHandle.h>

#include <QSaveFile>

#include <system_error>
#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace filesystem {

namespace {

/// Waits until the content is on the disk; the error code, or 0 when it is or cannot be known.
int syncError(const QFileDevice &device)
{
#ifdef Q_OS_UNIX
    if (::fsync(device.handle()) != 0 && errno != EINVAL && errno != ENOTSUP)
        return errno;
#else
    (void)device;
#endif
    return 0;
}

} // namespace

DiskFileHandle::DiskFileHandle(std::string path, std::unique_ptr<QFileDevice> device)
    : _path(std::move(path)), _device(std::move(device))
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

bool DiskFileHandle::doSeek(std::int64_t position)
{
    return _device->seek(position);
}

std::int64_t DiskFileHandle::doRead(void *data, std::int64_t count)
{
    if (!_device->isReadable()) {
        fail("is open for writing");
        return -1;
    }
    const auto done = _device->read(static_cast<char *>(data), count);
    if (done < 0)
        failFromDevice();
    return done;
}

std::int64_t DiskFileHandle::doWrite(const void *data, std::int64_t count)
{
    if (!_device->isWritable()) {
        fail("is open for reading");
        return -1;
    }
    const auto done = _device->write(static_cast<const char *>(data), count);
    if (done != count)
        failFromDevice();
    return done;
}

bool DiskFileHandle::doClose()
{
    // QSaveFile would notice neither that the last of its buffer cannot be written nor that the
    // content does not reach the disk, and replace the old file by a broken one.
    if (!_device->flush()) {
        failFromDevice();
        return false;
    }
    auto *atomic = qobject_cast<QSaveFile *>(_device.get());
    if (atomic == nullptr)
        return true;
    if (const int code = syncError(*_device); code != 0) {
        fail(std::generic_category().message(code));
        return false;
    }
    if (!atomic->commit()) {
        failFromDevice();
        return false;
    }
    return true;
}

void DiskFileHandle::failFromDevice()
{
    fail(_device->errorString().toStdString());
}

} // namespace filesystem
