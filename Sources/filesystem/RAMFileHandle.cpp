// SPDX-License-Identifier: MIT
#include <filesystem/RAMFileHandle.h>

#include <algorithm>
#include <utility>

namespace filesystem {

RAMFileHandle::RAMFileHandle(std::string path, RAMTable::Content content)
    : _path(std::move(path)), _content(std::move(content))
{
}

RAMFileHandle::RAMFileHandle(std::string path, std::shared_ptr<RAMTable> table)
    : _path(std::move(path)), _table(std::move(table))
{
}

RAMFileHandle::~RAMFileHandle() = default;

std::int64_t RAMFileHandle::size() const
{
    const auto &bytes = _content != nullptr ? *_content : _written;
    return static_cast<std::int64_t>(bytes.size());
}

std::int64_t RAMFileHandle::position() const
{
    return static_cast<std::int64_t>(_position);
}

bool RAMFileHandle::doSeek(std::int64_t position)
{
    _position = static_cast<std::size_t>(position);
    return true;
}

std::int64_t RAMFileHandle::doRead(void *data, std::int64_t count)
{
    if (_content == nullptr) {
        fail("is open for writing");
        return -1;
    }
    const auto done =
        _content->copy(static_cast<char *>(data), static_cast<std::size_t>(count), _position);
    _position += done;
    return static_cast<std::int64_t>(done);
}

std::int64_t RAMFileHandle::doWrite(const void *data, std::int64_t count)
{
    if (_content != nullptr) {
        fail("is open for reading");
        return -1;
    }
    const auto length = static_cast<std::size_t>(count);
    const auto replaced = std::min(length, _written.size() - _position);
    _written.replace(_position, replaced, static_cast<const char *>(data), length);
    _position += length;
    return count;
}

bool RAMFileHandle::doClose()
{
    if (_content != nullptr)
        return true;
    const auto reason = _table->put(RAMTable::normalized(_path),
                                    std::make_shared<const std::string>(std::move(_written)));
    _written.clear();
    _position = 0;
    if (!reason.empty())
        fail(reason);
    return reason.empty();
}

} // namespace filesystem
