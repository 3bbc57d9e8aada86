// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace sounds {

/// How often this thread took memory from the heap and gave some back, libraries included. Always 0
/// under sanitizers, which have a heap of their own.
std::size_t heapCalls() noexcept;

/// How often it locked, waited, or read, wrote and opened files. 0 under sanitizers too.
std::size_t blockingCalls() noexcept;

/// Whether calls are counted here.
bool countsCalls() noexcept;

} // namespace sounds
