// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

namespace zarn::io {

// What reading a document may cost is in proportion to its size, with something to begin with for
// the smallest. Music stays far below: a score has an element for every 18 bytes of text or more,
// about one for every byte of a packed file, unpacks to 20 to 40 times its size, and says of most
// bars what is in them.

/// Elements that the text of a document may have; each takes some 64 bytes of memory. `fileSize` is
/// the size of the file that the text comes from, which is smaller when it was packed.
constexpr std::size_t mostElements(std::size_t textSize, std::size_t fileSize) noexcept
{
    return 500'000 + std::min(textSize / 8, 4 * fileSize);
}

/// Bytes that a packed text of so many bytes may unpack to.
constexpr std::size_t mostUnpacked(std::size_t packedSize) noexcept
{
    return std::max(std::size_t(16) << 20, 100 * packedSize);
}

/// Nodes of the tree that no note or rest of the text stands for: bars that are empty and beats
/// that are place holders. Each takes some 250 bytes of memory.
constexpr std::size_t mostEmptyNodes(std::size_t textSize) noexcept
{
    return 100'000 + textSize / 8;
}

} // namespace zarn::io
