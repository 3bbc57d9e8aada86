// SPDX-License-Identifier: MIT
#include <filesystem/FileHandle.h>

#include <array>

namespace filesystem {

FileHandle::~FileHandle() = default;

void FileHandle::fail(const std::string &reason)
{
    if (_error.empty())
        _error = path() + ": " + reason;
}

bool FileHandle::isReady()
{
    if (_isClosed)
        fail("is closed");
    return !hasError();
}

bool FileHandle::seek(std::int64_t position)
{
    if (!isReady())
        return false;
    if (position < 0 || position > size() || !doSeek(position)) {
        fail("cannot move to byte " + std::to_string(position) + " of " + std::to_string(size()));
        return false;
    }
    return true;
}

std::int64_t FileHandle::readSome(void *data, std::int64_t count)
{
    if (!isReady() || count <= 0)
        return 0;
    const auto done = doRead(data, count);
    if (done < 0) {
        fail("cannot read");
        return 0;
    }
    return done;
}

bool FileHandle::readBlock(void *data, std::int64_t count)
{
    if (!isReady())
        return false;
    const auto at = position();
    if (readSome(data, count) == count)
        return true;
    fail("ends at byte " + std::to_string(size()) + ", " + std::to_string(count)
         + " bytes were wanted from byte " + std::to_string(at));
    return false;
}

bool FileHandle::writeBlock(const void *data, std::int64_t count)
{
    if (!isReady())
        return false;
    if (count > 0 && doWrite(data, count) != count) {
        fail("cannot write");
        return false;
    }
    return true;
}

bool FileHandle::readByte(std::uint8_t &value)
{
    return readBlock(&value, 1);
}

bool FileHandle::writeByte(std::uint8_t value)
{
    return writeBlock(&value, 1);
}

bool FileHandle::readShort(std::int16_t &value)
{
    std::array<std::uint8_t, 2> bytes{};
    if (!readBlock(bytes.data(), 2))
        return false;
    value = static_cast<std::int16_t>(static_cast<std::uint16_t>(bytes[0] | (bytes[1] << 8)));
    return true;
}

bool FileHandle::writeShort(std::int16_t value)
{
    const auto bits = static_cast<std::uint16_t>(value);
    const std::array<std::uint8_t, 2> bytes{static_cast<std::uint8_t>(bits & 0xff),
                                            static_cast<std::uint8_t>(bits >> 8)};
    return writeBlock(bytes.data(), 2);
}

bool FileHandle::close()
{
    if (!isReady())
        return false;
    _isClosed = true;
    if (doClose())
        return true;
    fail("cannot be completed");
    return false;
}

} // namespace filesystem
