// SPDX-License-Identifier: MIT
#pragma once

#include <streams/StreamsExport.h>

#include <cstdint>
#include <string>

namespace streams {

/// Bytes that are read, at a position that can be moved: a file, memory, a part of another stream,
/// a member of an archive.
///
/// A stream remembers its first error; after it every read fails, so that a caller may do a run of
/// reads and ask once at the end. Nothing here raises. Not safe for use by two threads at once, and
/// neither are two streams that read from the same file or archive.
class STREAMS_EXPORT Stream {
public:
    Stream() = default;
    Stream(const Stream &) = delete;
    Stream &operator=(const Stream &) = delete;
    virtual ~Stream();

    /// What the bytes are called, for messages: "band.zarn7bank: kick.wav".
    virtual std::string name() const = 0;

    /// Bytes from the start to the end.
    virtual std::int64_t size() const = 0;

    /// Where the next byte is read, in bytes from the start.
    virtual std::int64_t position() const = 0;

    /// Moves the position to between 0 and `size()`; false, and an error, outside.
    bool seek(std::int64_t position);

    /// Reads up to `count` bytes; answers how many there were (fewer at the end only).
    /// Reading fewer than asked is no error here.
    std::int64_t readSome(void *data, std::int64_t count);

    /// Reads exactly `count` bytes; false, and an error, when the stream ends before. The end is
    /// looked for first: `data` is left alone then.
    bool readBlock(void *data, std::int64_t count);

    /// Reads what is left into `bytes`; false, and an error, when that is more than `limit` bytes,
    /// for which no memory is taken.
    bool readRest(std::string &bytes, std::int64_t limit);

    bool hasError() const noexcept { return !_error.empty(); }

    /// What went wrong first, with the stream's name; empty while nothing did.
    const std::string &errorText() const noexcept { return _error; }

protected:
    /// The plain operations, inside of the bounds; -1 or false mean failure, for the reason given
    /// to `fail`. A read may give fewer bytes than asked, and gives none at the end only.
    virtual bool doSeek(std::int64_t position) = 0;
    virtual std::int64_t doRead(void *data, std::int64_t count) = 0;

    /// Records an error unless there is one already.
    void fail(const std::string &reason);

    /// Takes over what went wrong in a stream that this one reads from, with its name.
    void failLike(const Stream &other);

private:
    std::string _error;
};

} // namespace streams
