// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace filesystem {
class FileHandle;
}

namespace zarn::io {

/// No document is larger than this, packed or unpacked.
constexpr std::size_t maximumDocumentSize = std::size_t(512) << 20;

/// All bytes of a file, from its start. Raises `ImportException` when it cannot be read or is
/// larger than a document may be.
std::string readWhole(filesystem::FileHandle &handle);

/// Up to `count` bytes from the start of a file; the handle is left at the start. Never raises.
std::string peek(filesystem::FileHandle &handle, std::size_t count);

} // namespace zarn::io
