// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>
#include <streams/Stream.h>

#include <memory>

namespace streams {

/// Reads a file that is open for reading.
class STREAMS_EXPORT FileStream final : public Stream {
public:
    /// Keeps the handle, which is not null.
    explicit FileStream(std::unique_ptr<filesystem::FileHandle> handle);
    /// Leaves the handle to the caller, who keeps it longer than the stream.
    explicit FileStream(filesystem::FileHandle &handle);
    ~FileStream() override;

    std::string name() const override { return _handle.path(); }
    std::int64_t size() const override { return _size; }
    std::int64_t position() const override { return _position; }

protected:
    bool doSeek(std::int64_t position) override;
    std::int64_t doRead(void *data, std::int64_t count) override;

private:
    void failLikeHandle();

    std::unique_ptr<filesystem::FileHandle> _owned;
    filesystem::FileHandle &_handle;
    std::int64_t _size;
    std::int64_t _position;
};

} // namespace streams
