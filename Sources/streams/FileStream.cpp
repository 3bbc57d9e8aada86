// SPDX-License-Identifier: MIT
#include <streams/FileStream.h>

namespace streams {

FileStream::FileStream(std::unique_ptr<filesystem::FileHandle> handle)
    : _owned(std::move(handle)), _handle(*_owned), _size(_handle.size()),
      _position(_handle.position())
{
}

FileStream::FileStream(filesystem::FileHandle &handle)
    : _handle(handle), _size(handle.size()), _position(handle.position())
{
}

FileStream::~FileStream() = default;

bool FileStream::doSeek(std::int64_t position)
{
    if (!_handle.seek(position)) {
        failLikeHandle();
        return false;
    }
    _position = position;
    return true;
}

std::int64_t FileStream::doRead(void *data, std::int64_t count)
{
    const auto read = _handle.readSome(data, count);
    if (_handle.hasError()) {
        failLikeHandle();
        return -1;
    }
    _position += read;
    return read;
}

/// The handle's message begins with its path, as those of this stream do.
void FileStream::failLikeHandle()
{
    const std::string &text = _handle.errorText();
    const std::string start = name() + ": ";
    fail(text.compare(0, start.size(), start) == 0 ? text.substr(start.size()) : text);
}

} // namespace streams
