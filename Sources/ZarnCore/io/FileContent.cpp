// SPDX-License-Identifier: MIT
#include <ZarnCore/io/FileContent.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <filesystem/FileHandle.h>

#include <algorithm>

namespace zarn::io {

std::string readWhole(filesystem::FileHandle &handle)
{
    const auto size = handle.size();
    if (size > static_cast<std::int64_t>(maximumDocumentSize))
        ZARN_REFUSE_IN("zarn::io::readWhole", handle.path(), "",
                       "the file is larger than the 512 MiB that a document may have");
    std::string bytes(static_cast<std::size_t>(std::max<std::int64_t>(size, 0)), '\0');
    if (!handle.seek(0) || !handle.readBlock(&bytes[0], static_cast<std::int64_t>(bytes.size())))
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
