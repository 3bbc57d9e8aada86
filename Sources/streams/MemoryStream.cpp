// SPDX-License-Identifier: MIT
#include <streams/MemoryStream.h>

#include <algorithm>
#include <cstring>

namespace streams {

MemoryStream::MemoryStream(std::string name, std::string bytes)
    : MemoryStream(std::move(name), std::make_shared<const std::string>(std::move(bytes)))
{
}

MemoryStream::MemoryStream(std::string name, std::shared_ptr<const std::string> bytes)
    : _name(std::move(name)), _kept(std::move(bytes)), _bytes(*_kept)
{
}

std::unique_ptr<MemoryStream> MemoryStream::over(std::string name, std::string_view bytes)
{
    auto stream = std::make_unique<MemoryStream>(std::move(name), std::string());
    stream->_bytes = bytes;
    return stream;
}

MemoryStream::~MemoryStream() = default;

bool MemoryStream::doSeek(std::int64_t position)
{
    _position = static_cast<std::size_t>(position);
    return true;
}

std::int64_t MemoryStream::doRead(void *data, std::int64_t count)
{
    const auto taken = std::min(static_cast<std::size_t>(count), _bytes.size() - _position);
    std::memcpy(data, _bytes.data() + _position, taken);
    _position += taken;
    return static_cast<std::int64_t>(taken);
}

} // namespace streams
