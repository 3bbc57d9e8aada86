// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FilesystemExport.h>

#include <cstdint>
#include <string>

namespace filesystem {

/// An open file: bytes, little-endian integers and blocks, at a position that can be moved.
///
/// A handle remembers its first error; after it every read and write fails, so that a caller may
/// do a run of reads and ask once at the end. Not safe for use by two threads at once.
class FILESYSTEM_EXPORT FileHandle {
public:
    FileHandle() = default;
    FileHandle(const FileHandle &) = delete;
    FileHandle &operator=(const FileHandle &) = delete;

    /// Gives the file up; what was written and never committed by `close` is dropped.
    virtual ~FileHandle();

    /// Name under which the file was opened, for messages.
    virtual std::string path() const = 0;

    /// Size in bytes of what is stored so far.
    virtual std::int64_t size() const = 0;

    /// Position in bytes from the start, where the next read or write happens.
    virtual std::int64_t position() const = 0;

    /// Moves the position to between 0 and `size()`; false, and an error, outside.
    bool seek(std::int64_t position);

    /// Reads up to `count` bytes; answers how many there were (fewer at the end of the file).
    /// Reading fewer than asked is no error here.
    std::int64_t readSome(void *data, std::int64_t count);

    /// Reads exactly `count` bytes; false, and an error, when the file ends before.
    bool readBlock(void *data, std::int64_t count);
    bool writeBlock(const void *data, std::int64_t count);

    bool readByte(std::uint8_t &value);
    bool writeByte(std::uint8_t value);

    /// 16-bit integers, low byte first.
    bool readShort(std::int16_t &value);
    bool writeShort(std::int16_t value);

    /// Makes what was written the content of the file, at once and whole, and gives the file up.
    /// False when that failed or an error happened before: then an old file stays as it was.
    /// Afterwards every operation is an error, a second `close` too.
    bool close();

    bool hasError() const noexcept { return !_error.empty(); }

    /// What went wrong first, with the file's name; empty while nothing did.
    const std::string &errorText() const noexcept { return _error; }

protected:
    /// The plain operations; -1 or false mean failure, for the reason given to `fail`.
    virtual bool doSeek(std::int64_t position) = 0;
    virtual std::int64_t doRead(void *data, std::int64_t count) = 0;
    virtual std::int64_t doWrite(const void *data, std::int64_t count) = 0;
    virtual bool doClose() = 0;

    /// Records an error unless there is one already.
    void fail(const std::string &reason);

private:
    bool isReady();

    bool _isClosed = false;
    std::string _error;
};

} // namespace filesystem
