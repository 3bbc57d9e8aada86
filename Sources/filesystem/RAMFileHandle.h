// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>
#include <filesystem/RAMTable.h>

#include <cstddef>
#include <memory>
#include <string>

namespace filesystem {

/// An open file in memory. A reader shares the content; a writer has its own until it closes.
class RAMFileHandle final : public FileHandle {
public:
    /// Reads.
    RAMFileHandle(std::string path, RAMTable::Content content);
    /// Writes, into a table that it keeps alive.
    RAMFileHandle(std::string path, std::shared_ptr<RAMTable> table);
    ~RAMFileHandle() override;

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
    RAMTable::Content _content;
    std::shared_ptr<RAMTable> _table;
    std::string _written;
    std::size_t _position = 0;
};

} // namespace filesystem
