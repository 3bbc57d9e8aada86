// SPDX-License-Identifier: MIT
#include <streams/Stream.h>

#include <algorithm>

namespace streams {

Stream::~Stream() = default;

void Stream::fail(const std::string &reason)
{
    if (_error.empty())
        _error = name() + ": " + reason;
}

void Stream::failLike(const Stream &other)
{
    if (_error.empty())
        _error = other.errorText();
}

bool Stream::seek(std::int64_t position)
{
    if (hasError())
        return false;
    if (position < 0 || position > size() || !doSeek(position)) {
        fail("cannot move to byte " + std::to_string(position) + " of " + std::to_string(size()));
        return false;
    }
    return true;
}

std::int64_t Stream::readSome(void *data, std::int64_t count)
{
    std::int64_t done = 0;
    while (!hasError() && done < count) {
        const auto left = std::min(count - done, size() - position());
        if (left <= 0)
            break;
        const auto read = doRead(static_cast<char *>(data) + done, left);
        if (read <= 0) {
            fail(read < 0 ? "cannot be read"
                          : "ends at byte " + std::to_string(position()) + " of "
                         + std::to_string(size()));
            break;
        }
        done += read;
    }
    return done;
}

bool Stream::readBlock(void *data, std::int64_t count)
{
    if (hasError())
        return false;
    if (count < 0 || count > size() - position()) {
        fail("ends at byte " + std::to_string(size()) + ", " + std::to_string(count)
             + " bytes were wanted from byte " + std::to_string(position()));
        return false;
    }
    return readSome(data, count) == count;
}

bool Stream::readRest(std::string &bytes, std::int64_t limit)
{
    if (hasError())
        return false;
    const auto left = size() - position();
    if (left > limit) {
        fail("has " + std::to_string(left) + " bytes, more than the " + std::to_string(limit)
             + " that it may have");
        return false;
    }
    bytes.resize(static_cast<std::size_t>(left));
    return readBlock(&bytes[0], left);
}

} // namespace streams
