// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>

#include <algorithm>
#include <cstring>
#include <vector>

/// A file of bytes in memory.
class BytesInMemory final : public filesystem::FileHandle {
public:
    std::vector<std::uint8_t> bytes;

    std::string path() const override { return "bytes"; }
    std::int64_t size() const override { return static_cast<std::int64_t>(bytes.size()); }
    std::int64_t position() const override { return _position; }

protected:
    bool doSeek(std::int64_t position) override
    {
        _position = position;
        return true;
    }
    std::int64_t doRead(void *data, std::int64_t count) override
    {
        count = std::min(count, size() - _position);
        if (count > 0)
            std::memcpy(data, bytes.data() + _position, static_cast<std::size_t>(count));
        _position += count;
        return count;
    }
    std::int64_t doWrite(const void *data, std::int64_t count) override
    {
        const auto *const first = static_cast<const std::uint8_t *>(data);
        bytes.insert(bytes.end(), first, first + count);
        _position += count;
        return count;
    }
    bool doClose() override { return true; }

private:
    std::int64_t _position = 0;
};
