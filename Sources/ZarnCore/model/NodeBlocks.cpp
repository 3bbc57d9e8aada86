// SPDX-License-Identifier: MIT
#include <ZarnCore/model/NodeBlocks.h>

#include <new>

namespace zarn {

void *NodeBlocks::Block::take(std::size_t bytes)
{
    const std::size_t size = (bytes + alignment - 1) / alignment * alignment;
    if (size > rest())
        throw std::bad_alloc();
    void *const place = _bytes + _used;
    _used += size;
    ++_made;
    return place;
}

void NodeBlocks::openBlock()
{
    closeBlock();
    _block = std::make_unique<Block>().release();
}

void NodeBlocks::closeBlock() noexcept
{
    if (_block != nullptr)
        std::exchange(_block, nullptr)->close();
}

} // namespace zarn
