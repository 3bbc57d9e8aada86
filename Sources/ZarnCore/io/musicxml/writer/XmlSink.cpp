// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/XmlSink.h>

#include <filesystem/FileHandle.h>

namespace zarn::io {

namespace {

constexpr std::size_t blockSize = std::size_t(1) << 15;

} // namespace

void FileSink::write(const void *data, std::size_t size)
{
    if (_block.empty())
        _block.reserve(blockSize);
    _block.append(static_cast<const char *>(data), size);
    if (_block.size() + 4096 > blockSize)
        flush();
}

void FileSink::flush()
{
    _handle.writeBlock(_block.data(), static_cast<std::int64_t>(_block.size()));
    _block.clear();
}

} // namespace zarn::io
