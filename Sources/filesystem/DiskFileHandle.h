// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>

#include <QFileDevice>

#include <memory>
#include <string>

namespace filesystem {

/// An open file of the disk, over a Qt device: a QFile, or a QSaveFile where saving is atomic.
class DiskFileHandle final : public FileHandle {
public:
    /// The device is open.
    DiskFileHandle(std::string path, std::unique_ptr<QFileDevice> device);
    ~DiskFileHandle() override;

    std::string path() const override { return _path; }
    std::int64_t size() const override;
    std::int64_t position() const override;

protected:
    bool doSeek(std::int64_t position) override;
    std::int64_t doRead(void *data, std::int64_t count) override;
    std::int64_t doWrite(const void *data, std::int64_t count) override;
    bool doClose() override;

private:
    void failFromDevice();

    std::string _path;
    std::unique_ptr<QFileDevice> _device;
};

} // namespace filesystem
