// SPDX-License-Identifier: MIT
#include <ZarnCore/io/FileContent.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <filesystem/FileHandle.h>

#include <algorithm>
#include <vector>

namespace zarn::io {

namespace {

constexpr std::int64_t readingBlock = 1 << 17;

} // namespace

std::string readWhole(filesystem::FileHandle &handle)
{
    const auto size = handle.size();
    if (size > static_cast<std::int64_t>(maximumDocumentSize))
        ZARN_REFUSE_IN("zarn::io::readWhole", handle.path(), "",
                       "the file is larger than the 512 MiB that a document may have");
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(std::max<std::int64_t>(size, 0)));
    // By blocks that stay in the cache: a string of the whole size would be filled with zeros
    // first.
    std::vector<char> block(readingBlock);
    bool isRead = size >= 0 && handle.seek(0);
    for (std::int64_t rest = size; isRead && rest > 0;) {
        const auto count = std::min<std::int64_t>(rest, readingBlock);
        isRead = handle.readBlock(block.data(), count);
        bytes.append(block.data(), static_cast<std::size_t>(count));
        rest -= count;
    }
    if (!isRead)
        ZARN_REFUSE_IN("zarn::io::readWhole", handle.path(), "",
                       "the file cannot be read: " + handle.errorText());
    return bytes;
}

std::string peek(filesystem::FileHandle &handle, std::size_t count)
{
    std::string bytes(count, '\0');
    if (!handle.seek(0))
        return {};
    const auto read = handle.readSome(&bytes[0], static_cast<std::int64_t>(count));
    bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(read, 0)));
    handle.seek(0);
    return bytes;
}

} // namespace zarn::io
