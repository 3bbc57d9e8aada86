// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace sounds {

/// How often this thread took memory from the heap and gave some back, libraries included. Always 0
/// under sanitizers, which have a heap of their own.
std::size_t heapCalls() noexcept;

} // namespace sounds
