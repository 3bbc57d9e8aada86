// SPDX-License-Identifier: MIT
#include <streams/PartStream.h>

namespace streams {

PartStream::PartStream(std::string name, std::shared_ptr<Stream> whole, std::int64_t start,
                       std::int64_t count)
    : _name(std::move(name)), _whole(std::move(whole))
{
    const auto all = _whole->size();
    if (start < 0 || count < 0 || start > all || count > all - start) {
        fail("bytes " + std::to_string(start) + " to " + std::to_string(start) + " + "
             + std::to_string(count) + " lie outside of the " + std::to_string(all) + " bytes of "
             + _whole->name());
        return;
    }
    _start = start;
    _size = count;
}

PartStream::~PartStream() = default;

bool PartStream::doSeek(std::int64_t position)
{
    _position = position;
    return true;
}

std::int64_t PartStream::doRead(void *data, std::int64_t count)
{
    const auto at = _start + _position;
    if (_whole->position() != at && !_whole->seek(at)) {
        failLike(*_whole);
        return -1;
    }
    const auto read = _whole->readSome(data, count);
    if (_whole->hasError()) {
        failLike(*_whole);
        return -1;
    }
    _position += read;
    return read;
}

} // namespace streams
