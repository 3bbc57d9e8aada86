// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/AtomicSave.h>
#include <filesystem/FileHandle.h>

#include <QFile>

#include <memory>
#include <string>

namespace filesystem {

/// An open file of the disk: read or written directly, or saved atomically.
class DiskFileHandle final : public FileHandle {
public:
    // What is handed over is open.

    DiskFileHandle(std::string path, std::unique_ptr<QFile> file);
    DiskFileHandle(std::string path, std::unique_ptr<AtomicSave> save);
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
    std::string _path;
    std::unique_ptr<QFile> _file;
    std::unique_ptr<AtomicSave> _save;
    QFileDevice *_device; ///< the one of these that there is
};

} // namespace filesystem
